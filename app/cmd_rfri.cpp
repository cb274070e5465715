// `vornmark rfri FOLDER`: the final RFRI grid from the twelve defect grids of
// a folder, as the panel "RFRI Calculation" makes it with FOLDER as the
// drawing's folder: default files for the missing or unfit grids, the
// weighted sum written to RFRI_FinalValue.grd, the defaults removed again.
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "roofrisk/rfri_calculation.h"

namespace vorn::app {

namespace {

namespace fs = std::filesystem;

// The default files are removed by their bare names, in the current
// directory, as the panel does; so the run takes place in FOLDER.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const fs::path& folder)
    {
        std::error_code error;
        previous_ = fs::current_path(error);
        fs::current_path(folder, error);
    }
    ~WorkingDirectory()
    {
        std::error_code error;
        fs::current_path(previous_, error);
    }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    fs::path previous_;
};

int runRfri(const std::string& folderText)
{
    std::error_code error;
    fs::path folder = fs::absolute(folderText, error).lexically_normal();
    if (error || !fs::is_directory(folder, error)) {
        consolePrintf("vornmark: rfri: %s is not a folder\n", folderText.c_str());
        return kExitFailure;
    }
    WorkingDirectory inFolder(folder);
    rfri::CRFRICalculation calc(folder.string());
    calc.scanFiles();
    bool written = false;
    if (calc.makeDefaultFiles() && calc.calculate()) {
        calc.finalGrid.setTitle(rfri::kFinalTitle);
        written = calc.finalGrid.writeGrd(calc.pathOf(rfri::kFinalFile));
        if (written) acutPrintf("\nThe Final RFRI Values were saved to < %s >", calc.pathOf(rfri::kFinalFile).c_str());
    }
    calc.removeDefaultFiles();
    acutPrintf("\n");
    finishTerminalLine();
    return written ? kExitOk : kExitFailure;
}

CommandGroup group{44, [](CLI::App& parser, Action& action) {
    auto folder = std::make_shared<std::string>();
    CLI::App* sub = parser.add_subcommand("rfri", "final RFRI grid from the twelve factor grids of a folder");
    sub->add_option("FOLDER", *folder, "folder of the RFRI factor grids; RFRI_FinalValue.grd is written there")
        ->required();
    sub->callback([folder, &action] { action = [folder] { return runRfri(*folder); }; });
}};

}  // namespace

}  // namespace vorn::app
