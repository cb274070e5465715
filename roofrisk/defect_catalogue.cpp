#include "roofrisk/defect_catalogue.h"

#include <algorithm>

#include "base/textnum.h"

namespace vorn::rfri {

namespace {

using Wording = std::vector<std::string>;

const Wording kFiveNone = {"(1) None", "(2) Widely Spaced (>3 ft)", "(3) Unknown", "(4) Moderately Spaced (1-3 ft)",
                           "(5) Closely Spaced (<1ft)"};
const Wording kStrata = {"(1) Massive (>3 ft layers)", "(2) Med. Layers (1-3 ft), Strong Bedding Contacts",
                         "(3) Med. Layers (1-3 ft), Weak Bedding Contacts, or Unknown",
                         "(4) Thin Layers (<1 ft), Strong Bedding Contacts",
                         "(5) Thin Layers (<1 ft), Weak Bedding Contacts"};
const Wording kDebris = {"(1) None", "(2) Slight (Widely Spaced)", "(3) Unknown", "(4) Moderate",
                         "(5) Significant (Continuous)"};
const Wording kWater = {"(1) None", "(2) Damp Roof", "(3) Unknown", "(4) Drippers", "(5) Steady Flow"};

std::array<DefectFactor, kFactorCount> buildCatalogue()
{
    using F = DefectForm;
    return {{
        {"dlg_RFRI_AngDisc", "RFRI_AngDisc", "RFRI_AngDisc.grd", "Angular Discontinuities", "Angular Discontinuities", 1,
         F::Line, {2, 3, 4, 5}, "2 3 4 5", 1, {20, 30, 40, 50}, {2, 3, 4, 5}, 1, 1, false,
         "\nChange defect level [2/3/4/5] or\nSelect first point of the Angular Discontinuity:",
         "Angular Discontinuity Griding...", "Angular Discontinuitues values will be saved to < %s >",
         {"(2) One Strong Contact", "(3) One Weak Contact", "(4) Multiple Strong Contacts", "(5) Multiple Weak Contacts"},
         "Geologic Factors", "Angular Discontinuities:",
         {"(1) None", "(2) One Strong Contact", "(3) One Weak Contact or Unknown", "(4) Multiple Strong Contacts",
          "(5) Multiple Weak Contacts"},
         2, "Angular Discontinuities: %s\n", "Geologic Factors", "Angular Discontinuities", 3,
         "\nA default file was created for the Angular Discontinuity"},
        {"dlg_RFRI_JointFreq", "RFRI_JointFreq", "RFRI_JointFreq.grd", "Joint Frequencies", "Joint Frequency", 2,
         F::AreaMaximum, {1, 2, 3, 4, 5}, "1 2 3 4 5", 2, {0, 20, 30, 40, 50}, {1, 2, 3, 4, 5}, 1, 1, false,
         "\nChange defect level [1/2/3/4/5] or\nSelect first point of the Joint Frequency Area:",
         "Joint Frequency Griding...", "Joint Frequency values will be saved to < %s >", kFiveNone, "Geologic Factors",
         "Joint Frequency:", kFiveNone, 2, "Joint Frequency: %s\n", "Geologic Factors", "Joint Frequency", 3,
         "\nA default file was created for the Joint Frequency"},
        {"dlg_RFRI_StrataStrength", "RFRI_StrataStrength", "RFRI_StrataStrength.grd", "Strata Strength",
         "Strata Strength", 3, F::AreaMaximum, {1, 2, 3, 4, 5}, "1 2 3 4 5", 2, {0, 20, 30, 40, 50}, {1, 2, 3, 4, 5}, 1,
         1, false, "\nChange defect level [1/2/3/4/5] or\nSelect first point of the Strata Strength Area:",
         "Strata Strength Griding...", "Strata Strength values will be saved to < %s >", kStrata, "Geologic Factors",
         "Strata Strength:", kStrata, 2, "Strata Strength: %s\n", "Geologic Factors", "Strata Strength", 3,
         "\nA default file was created for the Strata Strength"},
        {"dlg_RFRI_ShearRupt", "RFRI_ShearRupt", "RFRI_ShearRupt.grd", "Shear Rupture Surfaces",
         "Shear Rupture Surfaces", 4, F::Line, {3, 5}, "3 5", 1, {30, 50}, {3, 5}, 2, 1, true,
         "\nChange defect level [3/5] or\nSelect first point of the Shear Rupture Surface:",
         "Shear Rupture Surface Griding...", "Shear Rupture Surface values will be saved to < %s >",
         {"(3) Small Shear (cutter < 3 ft)", "(5) Large Shear (cutter > 3ft)"}, "Mining Induced Failures",
         "Shear Rupture Surface:",
         {"(1) None", "(3) Small Shear (cutter < 3ft) or Unknown", "(5) Larger Shear (cutter > 3ft)"}, 1,
         "Shear Rupture: %s\n", "Mining Induced Failures", "Shear Rupture Surfaces", 3,
         "\nA default file was created for the Shear Rupture Surface"},
        {"dlg_RFRI_JointSep", "RFRI_JointSep", "RFRI_JointSep.grd", "Joint Separations", "Joint Separations", 5,
         F::Line, {5}, "5", 0, {50}, {5}, 1, 1, true,
         "\nChange defect level [5] or\nSelect first point of the Joint Separation:", "Joint Separation Griding...",
         "Joint Separation values will be saved to < %s >", {"(5) Noticeable or Measureable"},
         "Mining Induced Failures", "Joint Separation:", {"(1) None", "(3) Unknown", "(5) Noticeable or Measurable"}, 1,
         "Joint Separation: %s\n", "Mining Induced Failures", "Joint Separation", 3,
         "\nA default file was created for the Joint Separation"},
        {"dlg_RFRI_StrataShift", "RFRI_StrataShift", "RFRI_StrataShift.grd", "Strata Shift", "Strata Shift", 6,
         F::AreaMaximum, {1, 3, 5}, "1 3 5", 1, {0, 20, 50}, {1, 3, 5}, 2, 1, false,
         "\nChange defect level [1/3/5] or\nSelect first point of the Strata Shift Area:", "Strata Shift Griding...",
         "Strata Shift values will be saved to < %s >",
         {"(1) None", "(3) < 1 in of Offset, Partial Drillhole Offset, or Unknown",
          "(5) > 1 in of Offset, Complete Drillhole Offset"},
         "Mining Induced Failures", "Lateral Strata Shift:",
         {"(1) None", "(3) < 1 in of Offset, Partial Drillhole Offset,or Unknown",
          "(5) > 1 in of Offset or Complete Drillhole Offset"},
         1, "Strata Shifting: %s\n", "Mining Induced Failures", "Lateral Strata Shifting", 3,
         "\nA default file was created for the Strata Shifting"},
        {"dlg_RFRI_StrataSep", "RFRI_StrataSep", "RFRI_StrataSep.grd", "Strata Separation", "Strata Separation", 30,
         F::AreaMaximum, {1, 3, 5}, "1 3 5", 1, {0, 20, 50}, {1, 3, 5}, 2, 1, false,
         "\nChange defect level [1/3/5] or\nSelect first point of the Strata Separation Area:",
         "Strata Separation Griding...", "Strata Separation values will be saved to < %s >",
         {"(1) None", "(3) Slight (Barely Detectable), or Unknown", "(5) Significant (> 0.2 in)"},
         "Mining Induced Failures", "Strata Separation:",
         {"(1) None", "(3) Slight (Barely Detectable),or Unknown", "(5) Significant (> 0.2 in)"}, 1,
         "Strata Separation: %s\n", "Mining Induced Failures", "Vertical Strata Separation", 3,
         "\nA default file was created for the Strata Separation"},
        {"dlg_RFRI_RockDebris", "RFRI_RockDebris", "RFRI_RockDebris.grd", "Rock Debris", "Rock Debris", 60,
         F::AreaMaximum, {1, 2, 3, 4, 5}, "1 2 3 4 5", 2, {0, 20, 30, 40, 50}, {1, 2, 3, 4, 5}, 1, 1, false,
         "\nChange defect level [1/2/3/4/5] or\nSelect first point of the Rock Debris Area:", "Rock Debris Griding...",
         "Rock Debris values will be saved to < %s >", kDebris, "Roof Profile", "Rock Debris on Floor:", kDebris, 2,
         "Roof Rock Debris: %s\n", "Roof Profile", "Roof Rock Debris", 3,
         "\nA default file was created for the Rock Debris"},
        {"dlg_RFRI_RoofShape", "RFRI_RoofShape", "RFRI_RoofShape.grd", "Roof Shape", "Roof Shape", 94, F::AreaMaximum,
         {1, 3, 5}, "1 3 5", 1, {0, 20, 50}, {1, 3, 5}, 2, 1, false,
         "\nChange defect level [1/3/5] or\nSelect first point of the Roof Shape Area:", "Roof Shape Griding...",
         "Roof Shape values will be saved to < %s >", {"(1) Smooth", "(3) Intermediate, or Unknown", "(5) Rough"},
         "Roof Profile", "Roof Shape:", {"(1) Smooth", "(3) Intermediate or Unknown", "(5) Rough"}, 1,
         "Roof Shape: %s\n", "Roof Profile", "Roof Shape", 3, "\nA default file was created for the Roof Shape"},
        {"dlg_RFRI_Water", "RFRI_Water", "RFRI_Water.grd", "Ground Water", "Ground Water", 140, F::AreaMaximum,
         {1, 2, 3, 4, 5}, "1 2 3 4 5", 2, {0, 20, 30, 40, 50}, {1, 2, 3, 4, 5}, 1, 1, false,
         "\nChange defect level [1/2/3/4/5] or\nSelect first point of the Ground Water Area:", "Ground Water Griding...",
         "Ground Water values will be saved to < %s >", kWater, "Moisture Factor/Other Adjustments",
         "Moisture/Ground Water:", kWater, 2, "Moisture/Ground Water: %s\n", "Moisture Factor", "Ground Water Inflow", 3,
         "\nA default file was created for the Ground Water"},
        {"dlg_RFRI_Seismic", "RFRI_Seismic", "RFRI_Seismic.grd", "Seismic Activity", "Seismic Activity", 192,
         F::AreaOverwrite, {-5, 0, 25}, "-5 0 25", 1, {0, 20, 50}, {1, 3, 5}, 2, 0, false,
         "\nChange defect level [-5/0/25] or\nSelect first point of the Seismic Activity Area:",
         "Seismic Activity Griding...", "Seismic Activity values will be saved to < %s >",
         {"(-5) No Microseismic Clustering", "(0) Unknown", "(25) MicroSeismic Clustering"},
         "Moisture Factor/Other Adjustments", "Microseismic Activity:",
         {"(0) Unknown", "(-5) No Microseismic Clustering", "(30) Clustering"}, 0, "Microseismic Adjustment: %s\n",
         "Measurement-Based Adjustments", "MicroSeismic Activity Adjustment", 0,
         "\nA default file was created for the Seismic"},
        {"dlg_RFRI_RoofDefRate", "RFRI_RoofDefRate", "RFRI_RoofDefRate.grd", "Roof Def. Rate", "Roof Def. Rate", 200,
         F::AreaOverwrite, {-5, 0, 15, 30}, "-5 0 15 30", 1, {0, 20, 30, 50}, {1, 2, 3, 5}, 0, 0, false,
         "\nChange defect level [-5/0/15/30] or\nSelect first point of the Roof Deformation Rate Area:",
         "Roof Deformation Rate Griding...", "Roof Deformation Rate values will be saved to < %s >",
         {"(-5) No Roof Deflection Movement", "(0) Unknown", "(15) Constant Deflection",
          "(30) Accelerating Deflection"},
         "Moisture Factor/Other Adjustments", "Roof Deformation Rate:",
         {"(0) Unknown", "(-5) No Roof Deflection Movement", "(15) Constant Deflection",
          "(30) Accelerating Defelection"},
         0, "Roof Deformation Adjustment: %s\n", "Measurement-Based Adjustments", "Roof Deformation Rate Adjustment", 0,
         "\nA default file was created for the Roof Deformation Rate"},
    }};
}

}  // namespace

int DefectFactor::indexOfWidth(int width) const
{
    bool inRange = form == DefectForm::AreaOverwrite ? (width >= 1 && width <= 5)
                                                     : (width >= levels.front() && width <= levels.back());
    if (!inRange) return -1;
    if (widthStep > 0) return (width - widths.front()) / widthStep;
    auto found = std::find(widths.begin(), widths.end(), width);
    return found == widths.end() ? -1 : static_cast<int>(found - widths.begin());
}

const std::array<DefectFactor, kFactorCount>& defectCatalogue()
{
    static const std::array<DefectFactor, kFactorCount> catalogue = buildCatalogue();
    return catalogue;
}

void fillDefectDefaults(CDefectRecords& records)
{
    for (int k = 0; k < kFactorCount; ++k) {
        const DefectFactor& factor = defectFactor(k);
        CDefectRecord& record = records[static_cast<size_t>(k)];
        record.levelIndex = factor.startIndex;
        record.defectLayer = factor.key;
        record.defectColor = factor.color;
        record.gridFile = factor.gridFile;
        record.defectTitle = factor.title;
        record.reach = factor.reach;
        record.taper = false;
    }
}

void installDefectDefaults() { defectDefaultsFiller() = fillDefectDefaults; }

std::string inFolder(const std::string& folder, const std::string& file)
{
    if (folder.empty() || folder.back() == '/' || folder.back() == '\\') return folder + file;
    return folder + "/" + file;
}

const std::string kAssessmentApplication = "RFRI_QRL_TOVAX_APPLICATION";

bool isAssessmentRecord(const std::vector<std::string>& record)
{
    return record.size() == kAssessmentEntries && iequals(record.front(), kAssessmentApplication);
}

int assessmentValue(const std::string& text) { return text.empty() ? 0 : _wtoi(text.substr(1)); }

int assessmentIndex(const std::array<int, kFactorCount>& v)
{
    int sum = v[9] + 2 * (v[7] + v[6] + v[5] + v[4] + v[3]) + v[8] + v[2] + v[1] + v[0];
    return static_cast<int>(sum * 1.11 + v[10] + v[11]);
}

int assessmentIndex(const std::vector<std::string>& record)
{
    std::array<int, kFactorCount> values{};
    for (int k = 0; k < kFactorCount; ++k) values[static_cast<size_t>(k)] = assessmentValue(record[static_cast<size_t>(k + 1)]);
    return assessmentIndex(values);
}

void legendRange(int minimum, int maximum, int& lower, int& upper)
{
    lower = minimum / 10 * 10;
    if (minimum - lower >= 5) lower += 5;
    int base = maximum / 10 * 10;
    if (maximum - base >= 5)
        upper = base + 10;
    else if (maximum - base > 0)
        upper = base + 5;
    else
        upper = base;
}

}  // namespace vorn::rfri
