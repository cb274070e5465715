// A session of the stand-alone host: a drawing database, the editor, the
// user interface and the reporter wired into one platform, with the answers
// (script, terminal or none), the transcript and the profile.
//
//   Session session(std::move(database));
//   std::string error;
//   if (!session.open(options, error)) ...;
//   int status = session.run([&] { return runCommand(); });
//
// `run` installs the platform and the reporter for the command, stops the
// command when a script line of the wrong kind comes (the message goes to
// standard error and the status is 1) and writes the transcript when asked.
#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "host/editor_host.h"
#include "host/host_reporter.h"
#include "host/profile_ini.h"
#include "host/script_answers.h"
#include "host/transcript.h"
#include "host/ui_host.h"

namespace vorn {

class PanelPort;

struct SessionOptions {
    enum class Answering { None, Script, Terminal };
    Answering answering = Answering::None;
    std::string scriptPath;      // Script: the file to read
    std::string scriptText;      // Script with no path: the lines themselves
    std::string transcriptPath;  // empty: no transcript file
    // The profile file; unset takes IniProfile::defaultPath(), an empty
    // string keeps the profile in memory.
    std::optional<std::string> profilePath;
    std::string drawingFolder;   // DWGPREFIX, with its trailing separator
    std::FILE* in = stdin;       // Terminal: where the typed lines come from
    std::FILE* out = stdout;     // command line (null: quiet)
    std::FILE* err = stderr;     // message boxes, script errors (null: quiet)
};

class Session {
public:
    explicit Session(std::unique_ptr<DatabasePort> database);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Sets up answers, profile and output, and makes Ctrl-C the user break;
    // false with `error` when the script cannot be read.
    bool open(const SessionOptions& options, std::string& error);

    // The panel host (the panel driver of the shell); not owned.
    void setPanels(PanelPort* panels) { panels_ = panels; }

    // Runs `command` with this session's platform and reporter installed.
    // A ScriptError ends it with status 1 and its message on standard error.
    // The transcript file is written afterwards when one was asked for.
    int run(const std::function<int()>& command);

    Platform platform();
    DatabasePort& database() { return *database_; }
    HostEditor& editor() { return *editor_; }
    HostUi& ui() { return *ui_; }
    HostReporter& reporter() { return *reporter_; }
    Answers& answers() { return answers_; }
    Transcript& transcript() { return transcript_; }
    IniProfile& profile() { return profile_; }
    // The message of the ScriptError that stopped the last run, if any.
    const std::string& scriptError() const { return scriptError_; }

private:
    std::unique_ptr<DatabasePort> database_;
    Answers answers_;
    Transcript transcript_;
    IniProfile profile_;
    std::unique_ptr<HostReporter> reporter_;
    std::unique_ptr<HostEditor> editor_;
    std::unique_ptr<HostUi> ui_;
    PanelPort* panels_ = nullptr;
    SessionOptions options_;
    std::string scriptError_;
};

}  // namespace vorn
