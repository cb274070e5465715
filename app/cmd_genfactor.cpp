// `vornmark genfactor`: the factor normalisation with the bounds and the
// description that the function page would have set.
#include <map>
#include <optional>

#include "app/cli_util.h"
#include "app/commands.h"
#include "grid/grid.h"
#include "index/factor.h"
#include "base/report.h"
#include "base/textnum.h"

namespace vorn::app {
namespace {

struct GenFactorArgs {
    std::string input;
    std::string output;
    int function = kFunctionNone;
    int tendency = kTendencyNormal;
    std::optional<double> lower;
    std::optional<double> upper;
    std::optional<std::string> description;
};

// Fills bounds and description left out as the panel fills them from the
// input grid: min and max through their "%f" text, the midpoint for the
// functions other than linear, the title plus " Index".
bool completeFromInput(const GenFactorArgs& args, FactorConversion& conversion)
{
    myGrid grid;
    if (!grid.readGrd(args.input, 1)) {
        AfxMessageBox("Invalid Grid input file!");
        return false;
    }
    double min = 0.0;
    double max = 0.0;
    grid.getMinMax(min, max);
    min = _wtof(formatString("%f", min));
    max = _wtof(formatString("%f", max));
    double lower = args.function == kFunctionLinear ? min : min + (max - min) * 0.5;
    double upper = args.function == kFunctionLinear ? max : lower;
    conversion.lower = args.lower.value_or(lower);
    conversion.upper = args.upper.value_or(args.function == kFunctionStep ? conversion.lower : upper);
    if (args.description) conversion.description = *args.description;
    else if (!grid.getTitle().empty()) conversion.description = grid.getTitle() + " Index";
    return true;
}

int genFactor(const GenFactorArgs& args)
{
    FactorConversion conversion;
    conversion.inputPath = args.input;
    conversion.outputPath = args.output;
    conversion.function = args.function;
    conversion.tendency = args.tendency;
    if (!completeFromInput(args, conversion)) {
        finishTerminalLine();
        explainReadFailure(args.input, "a grid file");
        return kExitFailure;
    }
    if (conversion.function == kFunctionLinear && conversion.upper - conversion.lower <= 1e-10) {
        AfxMessageBox("Limit bound error: Upper limit has to greater than lower limit!");
        return kExitFailure;
    }
    FactorConversionResult result = runFactorConversion(conversion);
    finishTerminalLine();
    if (!result.read) explainReadFailure(args.input, "a grid file");
    else if (!result.written) explainWriteFailure(args.output);
    return result.read && result.written ? kExitOk : kExitFailure;
}

CommandGroup group{10, [](CLI::App& parser, Action& action) {
    auto args = std::make_shared<GenFactorArgs>();
    CLI::App* sub = parser.add_subcommand("genfactor", "Normalise a factor grid to an index grid of 0 to 100");
    sub->add_option("INPUT", args->input, "the factor grid (.grd)")->required();
    sub->add_option("OUTPUT", args->output, "the index grid to write (.grd)")->required();
    const std::map<std::string, int> functions{{"linear", kFunctionLinear},
                                               {"step", kFunctionStep},
                                               {"exponential", kFunctionExponential},
                                               {"none", kFunctionNone}};
    const std::map<std::string, int> tendencies{{"normal", kTendencyNormal}, {"inverse", kTendencyInverse}};
    sub->add_option("--function", args->function, "how the factor maps to the index")
        ->required()
        ->type_name("linear|step|exponential|none")
        ->transform(CLI::CheckedTransformer(functions, CLI::ignore_case).description(""));
    sub->add_option("--tendency", args->tendency, "normal: the index rises with the factor between the bounds; inverse: it falls")
        ->required()
        ->type_name("normal|inverse")
        ->transform(CLI::CheckedTransformer(tendencies, CLI::ignore_case).description(""));
    sub->add_option("--lower", args->lower, "lower limit L (default: from the grid)");
    sub->add_option("--upper", args->upper, "upper limit U (default: from the grid)");
    sub->add_option("--description", args->description, "title of the index grid (default: title + \" Index\")");
    sub->callback([args, &action] { action = [args] { return genFactor(*args); }; });
}};

}  // namespace
}  // namespace vorn::app
