#include "host/docs_session.h"

#include <cctype>
#include <filesystem>

#include "host/db_database.h"
#include "shell/cmdstack.h"
#include "shell/menu.h"
#include "shell/report.h"
#include "shell/vornapp.h"

namespace vorn {

std::unique_ptr<DatabasePort> openDrawing(const std::string& path, std::string& error)
{
    if (path.empty()) return std::make_unique<host::HostDatabase>();
    error = "reading DXF drawings is not available in this build";
    return nullptr;
}

bool saveDrawing(DatabasePort&, const std::string&, std::string& error)
{
    error = "writing DXF drawings is not available in this build";
    return false;
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

AppSession::AppSession(std::unique_ptr<DatabasePort> database, std::string drawingPath)
    : session_(std::move(database)), drawingPath_(std::move(drawingPath))
{
}

AppSession::~AppSession()
{
    if (loaded_) session_.run([] { return static_cast<int>(acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr)); });
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
    session_.run([] { return static_cast<int>(acrxEntryPoint(AcRx::kInitAppMsg, nullptr)); });
    loaded_ = true;
    return true;
}

bool AppSession::knowsCommand(const std::string& name) const { return acedRegCmds()->lookupCmd(name) != nullptr; }

int AppSession::runCommand(const std::string& name)
{
    session_.transcript().printed("\nCommand: " + name);
    return session_.run([&name] {
        const AcEdCommand* command = acedRegCmds()->lookupCmd(name);
        if (!command) {
            acutPrintf("\nUnknown command \"%s\".  Press F1 for help.", upperCase(name).c_str());
            return 1;
        }
        command->handler();
        return 0;
    });
}

}  // namespace vorn
