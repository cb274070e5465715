// A scripted session of the application over a new drawing, for tests of
// whole commands: the script answers, the profile stays in memory and
// nothing goes to the terminal.
#pragma once

#include <string>
#include <vector>

#include "drawing/stringlist.h"
#include "host/docs_session.h"

class ScriptedApp {
public:
    explicit ScriptedApp(const std::string& script, std::unique_ptr<vorn::host::HostDatabase> drawing = nullptr)
        : app_(drawing ? std::move(drawing) : std::make_unique<vorn::host::HostDatabase>(), "")
    {
        vorn::SessionOptions options;
        options.answering = vorn::SessionOptions::Answering::Script;
        options.scriptText = script;
        options.profilePath = "";
        options.out = nullptr;
        options.err = nullptr;
        std::string error;
        app_.open(options, false, error);
    }

    int run(const std::string& command) { return app_.runCommand(command); }
    const std::string& transcript() { return app_.session().transcript().text(); }
    const std::string& scriptError() { return app_.session().scriptError(); }
    std::string profile(const std::string& key) { return app_.session().profile().get("Settings", key, "<none>"); }
    // The strings of the xrecord VornBaseGrid, empty when there is none.
    std::vector<std::string> baseGridRecord()
    {
        std::vector<std::string> strings;
        app_.session().run([&strings] { return loadStringList("VornBaseGrid", strings) ? 0 : 1; });
        return strings;
    }
    size_t entityCount() { return app_.drawing().modelSpace().size(); }

private:
    vorn::AppSession app_;
};

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// The transcript's line for a field of an open or closing panel.
inline std::string fieldNote(const std::string& caption, const std::string& value)
{
    return "  edit \"" + caption + "\" = \"" + value + "\"";
}
