// The page "Create Boundary" of the area boundary factor: closed boundary
// polylines on the working layer, made from the polylines of chosen layers,
// from centre lines or from area boundaries, and their check and deletion.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "drawing/entity_types.h"
#include "generators/gridpage_fields.h"
#include "shell/promaintab.h"

inline constexpr unsigned IDD_BOUNDTAB = 210;

class CBoundTab : public CAcUiTabChildDialogExt {
public:
    LayerChoiceList layers;
    // "Influence Range :", the range below.
    std::string rangeText;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;

    void OnCreateFromLayers();
    void OnCreateFromCenterLines();
    void OnCreateFromAreaBoundary();
    void OnCheckBoundaries();
    void OnDeleteBoundaries();
    void OnRange();
    void OnPickLayer();

private:
    double range() const;
    // Puts a new boundary on the working layer and appends it; false when
    // it cannot be appended.
    bool addBoundary(vorn::Entity& boundary, std::vector<vorn::ObjectId>& made);
    // Loops on picks with `prompt`, turning each picked object into a
    // boundary with `make`, until cancel or Enter; then the confirmation.
    void createFromPicks(const char* prompt, bool (CBoundTab::*make)(vorn::ObjectId, vorn::Entity&));
    bool makeAroundCenterLine(vorn::ObjectId id, vorn::Entity& boundary);
    bool makeFromAreaBoundary(vorn::ObjectId id, vorn::Entity& boundary);
    // Closed copies of the selected polylines. The first open one is
    // outlined and asked about: No skips every open polyline, the cancel
    // key ends the pass.
    void copyAsClosed(const vorn::SelectionSet& set, std::vector<vorn::ObjectId>& made);
};

// The confirmation of new boundaries: anything but Yes erases them; the
// highlight ends either way.
void confirmNewBoundaries(const std::string& message, const std::vector<vorn::ObjectId>& made);

// The "< &Range" reply as the field takes it: the distance formatted in
// decimal units and read back from its first character only, so that a
// picked 125.5 gives 1 and a leading minus sign or dot gives 0.
double rangeFromFirstDigit(double distance);
