// The polyline utility commands that prepare a mine map for the
// generators: closing, joining and building polylines, finding overlapping
// or duplicated closed polylines, checking contour lines and clearing
// layers. Each runs on the command line to its end; the command table
// calls them.
#pragma once

#include <string>
#include <vector>

#include "drawing/entity_types.h"

void checkClosedPolylines();
void joinPolylines();
void checkOverlaps();
void checkDuplicates();
void checkContours();
void createPolylineFromObjects();
void clearWorkingLayer();

// What the commands share.
namespace polyline_utility {

// The banner "Vornmark Modules' Polyline Utility" and the command's purpose.
void printBanner(const char* purpose);
// The interactive selection with the keyword "SLayer" (layers instead of
// objects), as ids; false after "No Objects selectes" when none came.
bool selectObjects(std::vector<vorn::ObjectId>& idsOut);
// The curves of `ids` that close on themselves, in selection order.
std::vector<vorn::ObjectId> closedCurves(const std::vector<vorn::ObjectId>& ids);
// Waits on "<Enter> to continue ..."; false when the user cancelled.
bool waitForEnter();
bool readEntity(vorn::ObjectId id, vorn::Entity& out);

}  // namespace polyline_utility
