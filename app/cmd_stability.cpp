// `vornmark stability PROJECT.prj OUTPUT.grd`: "Create Index" of the panel
// "Stability Index Generation" on a project, the save question answered Yes
// and the save dialog with OUTPUT.
#include <cstdio>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "index/stability_project.h"

namespace vorn::app {
namespace {

struct StabilityArgs {
    std::string project;
    std::string output;
};

int stability(const StabilityArgs& args)
{
    std::vector<StabilityFactor> factors;
    ProjectReadStatus status = readProject(args.project, factors);
    if (status == ProjectReadStatus::Unopened) {
        AfxMessageBox("File could not be opened: ");
        explainReadFailure(args.project, "a project file");
        return kExitFailure;
    }
    if (status == ProjectReadStatus::Truncated) {
        std::fprintf(stderr, "vornmark: %s: the project ends before its last factor\n", args.project.c_str());
        return kExitFailure;
    }
    if (factors.empty()) {
        std::fprintf(stderr, "vornmark: %s: the project lists no factor\n", args.project.c_str());
        return kExitFailure;
    }
    CompositeQuestions questions;
    questions.askSave = [](const std::string& message) {
        AfxMessageBox(message, MB_YESNO);
        return true;
    };
    questions.choosePath = [&args](std::string& path) {
        path = args.output;
        return true;
    };
    bool written = createCompositeIndex(factors, args.project, questions);
    finishTerminalLine();
    return written ? kExitOk : kExitFailure;
}

CommandGroup group{12, [](CLI::App& parser, Action& action) {
    auto args = std::make_shared<StabilityArgs>();
    CLI::App* sub = parser.add_subcommand("stability", "Composite stability index of a project's factor grids");
    sub->add_option("PROJECT", args->project, "the project (.prj): factor index grids with weights")->required();
    sub->add_option("OUTPUT", args->output, "the composite index grid to write (.grd)")->required();
    sub->callback([args, &action] { action = [args] { return stability(*args); }; });
}};

}  // namespace
}  // namespace vorn::app
