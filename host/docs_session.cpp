#include "host/docs_session.h"

#include <cctype>
#include <filesystem>

#include "host/dxf_codec.h"
#include "commands/cmdstack.h"
#include "commands/commands.h"
#include "commands/menu.h"
#include "base/report.h"
#include "commands/vornapp.h"

namespace vorn {

std::unique_ptr<host::HostDatabase> openDrawing(const std::string& path, std::string& error)
{
    auto drawing = std::make_unique<host::HostDatabase>();
    if (path.empty()) return drawing;
    host::DxfLoadResult loaded = host::loadDxf(path, *drawing);
    if (!loaded.ok) {
        error = loaded.error;
        return nullptr;
    }
    return drawing;
}

bool saveDrawing(const host::HostDatabase& drawing, const std::string& path, std::string& error)
{
    return host::saveDxf(path, drawing, error);
}

std::string folderOf(const std::string& path)
{
    namespace fs = std::filesystem;
    fs::path folder = path.empty() ? fs::current_path() : fs::absolute(fs::path(path)).parent_path();
    std::string text = folder.string();
    if (text.empty() || text.back() != '/') text += '/';
    return text;
}

namespace {
std::string upperCase(std::string text)
{
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}
}  // namespace

AppSession::AppSession(std::unique_ptr<host::HostDatabase> drawing, std::string drawingPath)
    : drawing_(drawing.get()), session_(std::move(drawing)), drawingPath_(std::move(drawingPath))
{
}

bool AppSession::save(const std::string& path, std::string& error)
{
    std::string target = path.empty() ? drawingPath_ : path;
    if (target.empty()) {
        error = "the drawing has no file name yet";
        return false;
    }
    if (!saveDrawing(*drawing_, target, error)) return false;
    drawingPath_ = target;
    return true;
}

AppSession::~AppSession()
{
    unload();
    setMenuAutomation(nullptr);
}

bool AppSession::open(SessionOptions options, bool terminal, std::string& error)
{
    options.drawingFolder = folderOf(drawingPath_);
    if (!session_.open(options, error)) return false;
    if (terminal)
        panels_ = std::make_unique<TerminalPanelDriver>(session_.answers(), session_.transcript());
    else
        panels_ = std::make_unique<PanelDriver>(session_.answers(), session_.transcript());
    session_.setPanels(panels_.get());
    documents_.open(session_.database(), drawingPath_);
    setMenuAutomation(&menuBar_);
    load();
    return true;
}

void AppSession::load()
{
    if (loaded_) return;
    session_.run([] { return static_cast<int>(acrxEntryPoint(AcRx::kInitAppMsg, nullptr)); });
    loaded_ = true;
}

void AppSession::unload()
{
    if (!loaded_) return;
    session_.run([] { return static_cast<int>(acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr)); });
    loaded_ = false;
}

namespace {
// A leading apostrophe asks for a transparent invocation, as menu macros do.
std::string commandName(const std::string& typed) { return !typed.empty() && typed[0] == '\'' ? typed.substr(1) : typed; }
}  // namespace

bool AppSession::knowsCommand(const std::string& typed) const
{
    return acedRegCmds()->lookupCmd(commandName(typed)) != nullptr;
}

int AppSession::runCommand(const std::string& typed)
{
    session_.transcript().printed("\nCommand: " + typed);
    std::string name = commandName(typed);
    return session_.run([&name] {
        const AcEdCommand* command = acedRegCmds()->lookupCmd(name);
        if (!command) {
            acutPrintf("\nUnknown command \"%s\".  Press F1 for help.", upperCase(name).c_str());
            return 1;
        }
        takeCommandIncomplete();
        command->handler();
        return takeCommandIncomplete() ? 1 : 0;
    });
}

std::unique_ptr<AppSession> startSession(const std::string& path, const SessionOptions& options, bool terminal,
                                         std::string& error)
{
    auto drawing = openDrawing(path, error);
    if (!drawing) {
        error = path + ": " + error;
        return nullptr;
    }
    auto app = std::make_unique<AppSession>(std::move(drawing), path);
    if (!app->open(options, terminal, error)) return nullptr;
    return app;
}

}  // namespace vorn
