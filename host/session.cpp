#include "host/session.h"

#include <unistd.h>

#include "base/userbreak.h"

namespace vorn {

Session::Session(std::unique_ptr<DatabasePort> database) : database_(std::move(database))
{
    reporter_ = std::make_unique<HostReporter>(answers_, transcript_, nullptr, nullptr);
    reporter_->setHasAnswers(false);
    editor_ = std::make_unique<HostEditor>(*database_, answers_, *reporter_);
    ui_ = std::make_unique<HostUi>(answers_, transcript_, profile_, nullptr);
}

Session::~Session() = default;

bool Session::open(const SessionOptions& options, std::string& error)
{
    options_ = options;
    using Answering = SessionOptions::Answering;
    if (options.answering == Answering::Script) {
        std::unique_ptr<ScriptSource> script = options.scriptPath.empty()
                                                   ? ScriptSource::fromText(options.scriptText)
                                                   : ScriptSource::fromFile(options.scriptPath, error);
        if (!script) return false;
        answers_.setSource(std::move(script));
    } else if (options.answering == Answering::Terminal) {
        answers_.setSource(std::make_unique<TerminalSource>(options.in));
        std::FILE* err = options.err;
        answers_.setComplain([err](const std::string& message) {
            if (err) std::fprintf(err, "%s\n", message.c_str());
        });
    }
    installUserBreakHandler();
    profile_ = IniProfile(options.profilePath.value_or(IniProfile::defaultPath()));
    reporter_ = std::make_unique<HostReporter>(answers_, transcript_, options.out, options.err);
    reporter_->setHasAnswers(options.answering != Answering::None);
    editor_ = std::make_unique<HostEditor>(*database_, answers_, *reporter_);
    editor_->setDrawingFolder(options.drawingFolder);
    if (options.err && isatty(fileno(options.err))) editor_->setProgressOutput(options.err);
    ui_ = std::make_unique<HostUi>(answers_, transcript_, profile_, options.err);
    return true;
}

Platform Session::platform() { return Platform{database_.get(), editor_.get(), ui_.get(), panels_}; }

int Session::run(const std::function<int()>& command)
{
    int status = 1;
    scriptError_.clear();
    clearUserBreak();  // a Ctrl-C between commands breaks nothing
    {
        ScopedPlatform installedPlatform(platform());
        ScopedReporter installedReporter(*reporter_);
        try {
            status = command();
        } catch (const ScriptError& error) {
            scriptError_ = error.what();
            if (options_.err) std::fprintf(options_.err, "vornmark: %s\n", scriptError_.c_str());
            transcript_.printed("\n[script stopped: " + scriptError_ + "]\n");
            status = 1;
        }
    }
    if (!options_.transcriptPath.empty() && !transcript_.writeTo(options_.transcriptPath)) {
        if (options_.err) std::fprintf(options_.err, "vornmark: cannot write the transcript %s\n", options_.transcriptPath.c_str());
    }
    return status;
}

}  // namespace vorn
