// Assessment polygons: the panel "Assesment Value" with the twelve
// assessments of a measured stretch of roof and its Measurement ID, the
// record that carries them on the polygon as extended entity data, and the
// four commands that assign, list, label and map them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "drawing/panel_port.h"
#include "roofrisk/defect_catalogue.h"

class CRFRIDefectValue : public vorn::Panel {
public:
    CRFRIDefectValue();

    std::string panelTitle() const override { return title.empty() ? "Assesment Value" : title; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnInitDialog() override;
    void OnOK() override;

    // The thirteen strings in record order (positions 1 to 13).
    std::vector<std::string> recordStrings() const;
    void loadRecord(const std::vector<std::string>& record);

    std::string title;
    // The selected text of each factor's combo box, in catalogue order.
    std::array<std::string, vorn::rfri::kFactorCount> values;
    std::string measurementId = "MEASUREMENT1";

private:
    // The controls while the panel is open.
    std::array<std::string, vorn::rfri::kFactorCount> comboTexts;
    std::string measurementText;
};

namespace vorn::rfri {

// The record of an entity as strings, one for each entry; false when the
// entity has no extended data of the application.
bool readAssessmentRecord(ObjectId id, std::vector<std::string>& record);
// The valid assessment record of an entity (14 entries, first the name).
bool readValidAssessment(ObjectId id, std::vector<std::string>& record);
// Writes the thirteen strings behind the application's head entry,
// registering the application for an entity that has none.
bool writeAssessmentRecord(ObjectId id, const std::vector<std::string>& thirteen);

// Lets the user select entities that carry extended data of the
// application: RTNORM with a set, RTERROR for none, RTCAN.
int selectAssessmentEntities(SelectionSet& set);

// The commands' bodies.
void assignAssessments();
void listAssessments();
void labelAssessments();
void mapAssessments();

// A text at the middle of the entity's extents; the height spans three
// fifths of its width over the characters when `height` is 0 or less.
bool placeLabel(ObjectId id, const std::string& text, double height, const std::string& layer);

// An entity's mapping index.
struct MappedEntry {
    ObjectId id;
    int index = 0;
};
// The valid assessments of the set in order with their indices.
std::vector<MappedEntry> collectAssessments(const SelectionSet& set, int& minimum, int& maximum);

}  // namespace vorn::rfri
