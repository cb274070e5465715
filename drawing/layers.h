// Layer services of the system: making and opening its layers, clearing
// them, isolating a few for crossing selections, and the layer lists that
// panels offer.
#pragma once

#include <string>
#include <vector>

#include "drawing/entity_types.h"
#include "drawing/geom_types.h"

// The layer of everything temporary or intermediate that the user may
// later delete.
inline constexpr const char* kWorkingLayerName = "VORN_Working_Layer";

// Creates a missing layer with that colour; an existing one is unlocked and
// thawed and keeps its colour. Returns the error status.
vorn::ErrorStatus ensureLayer(const std::string& name, int colorIndex);
// The working layer, colour 7 when new; prints a message on failure.
vorn::ErrorStatus ensureWorkingLayer();
// Deletes every entity on the layer (all kinds); nothing for an empty name.
void clearLayerObjects(const std::string& name);
// Turns off every layer that is on, thawed and unlocked and not named in
// `keep` (names compared exactly), adding its name to `turnedOff`.
void isolateLayers(const std::vector<std::string>& keep, std::vector<std::string>& turnedOff);
// Turns the named layers on again.
void restoreLayers(const std::vector<std::string>& turnedOff);
// The layers that are neither off nor frozen, sorted: what a combo box, a
// list box or a list view of layers offers.
std::vector<std::string> visibleLayerNames();
void fillLayerCombo(std::vector<std::string>& items);
void fillLayerList(std::vector<std::string>& items);
void fillLayerListCtrl(std::vector<std::string>& items);
// The layer of an entity; empty when it cannot be read.
std::string entityLayerName(vorn::ObjectId id);
