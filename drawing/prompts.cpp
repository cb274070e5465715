#include "drawing/prompts.h"

#include <filesystem>

#include "drawing/editor_port.h"
#include "drawing/platform.h"
#include "drawing/sysvars.h"
#include "drawing/ui_port.h"
#include "base/report.h"
#include "base/textnum.h"

int askYesNo(const std::string& message, int defaultAnswer)
{
    acedInitGet(0, "Yes No");
    const char* format = defaultAnswer == IDYES ? "\n%s [No/<Yes>]:" : "\n%s [Yes/<No>]:";
    std::string reply;
    int status = acedGetKword(vorn::formatString(format, message.c_str()).c_str(), reply);
    if (status == RTNONE) return defaultAnswer;
    if (status != RTNORM) return IDCANCEL;
    return reply == "Yes" ? IDYES : IDNO;
}

std::string drawingFolder()
{
    std::string folder = getStringVar("DWGPREFIX");
    if (!folder.empty()) return folder;
    std::error_code ignored;
    return std::filesystem::current_path(ignored).string();
}

namespace {

bool endsWithExtension(const std::string& name, const std::string& extension)
{
    std::string suffix = "." + extension;
    return name.size() >= suffix.size() && vorn::iequals(name.substr(name.size() - suffix.size()), suffix);
}

}  // namespace

bool pickFileName(bool forOpen, const std::string& extension, std::string& nameInOut)
{
    static std::string lastFolder = drawingFolder();
    vorn::UiPort* ui = vorn::platform().ui;
    if (!ui) return false;
    vorn::FileDialogRequest request;
    request.forOpen = forOpen;
    request.defaultExtension = "File Name";
    request.fileName = nameInOut;
    request.folder = lastFolder;
    request.flags = forOpen ? 4100u : 2u;
    request.filter = vorn::formatString("Select Files (*.%s)|*.%s|All files(*.*)|*.*||", extension.c_str(), extension.c_str());
    std::string chosen;
    if (!ui->fileDialog(request, chosen)) return false;
    if (!forOpen && !endsWithExtension(chosen, extension)) chosen += "." + extension;
    lastFolder = std::filesystem::path(chosen).parent_path().string();
    nameInOut = chosen;
    return true;
}
