// `vornmark transfer`: one item of one step of an element file into a grid
// file, or the list of the file's items.
#include <cstdio>
#include <memory>
#include <string>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "base/textnum.h"
#include "stressmodel/transfer.h"

namespace vorn::app {

namespace {
struct TransferOptions {
    std::string elementFile;
    std::string outputFile;
    int step = 0;
    int item = 0;
    bool list = false;
};

// The list row of item `item` of step `step`, both counted from 1.
size_t rowOfItem(const CElementFileReader& reader, int step, int item)
{
    if (step < 1 || step > reader.stepCount) {
        throw UsageError{formatString("--step %d is not in the file, which has steps 1 to %d", step, reader.stepCount)};
    }
    if (item < 1 || item > reader.itemCount) {
        throw UsageError{formatString("--item %d is not in the file, which has items 1 to %d", item, reader.itemCount)};
    }
    return static_cast<size_t>(step - 1) * static_cast<size_t>(reader.itemCount) + static_cast<size_t>(item - 1);
}

int runTransfer(const TransferOptions& options)
{
    CElementFileReader reader;
    if (!reader.selectFile(options.elementFile)) {
        explainReadFailure(options.elementFile, "an element file");
        return kExitFailure;
    }
    if (options.list) {
        printItemList(reader);
        return kExitOk;
    }
    if (options.outputFile.empty()) throw UsageError{"transfer needs OUTPUT.grd, or --list"};
    size_t row = rowOfItem(reader, options.step, options.item);
    return reader.transferRow(row, options.outputFile) ? kExitOk : kExitFailure;
}

CommandGroup group{41, [](CLI::App& parser, Action& action) {
    auto options = std::make_shared<TransferOptions>();
    CLI::App* sub = parser.add_subcommand("transfer", "one item of one step of an element file (.f1 ...) into a .grd file");
    sub->add_option("ELEMENTFILE", options->elementFile, "element file written by the stress model, or of that form")
        ->required();
    sub->add_option("OUTPUT", options->outputFile, "grid file to write");
    CLI::Option* list = sub->add_flag("--list", options->list, "print the items of all steps as the panel lists them");
    sub->add_option("--step", options->step, "mining step, from 1")->excludes(list);
    sub->add_option("--item", options->item, "item within the step, from 1 (2 is the total vertical stress)")->excludes(list);
    sub->callback([&action, options] {
        if (!options->list && (options->step == 0 || options->item == 0)) throw CLI::ValidationError("transfer needs --step and --item, or --list");
        action = [options] { return runTransfer(*options); };
    });
}};
}  // namespace

}  // namespace vorn::app
