#include "host/ui_host.h"

#include <filesystem>

#include "base/textnum.h"

namespace vorn {

namespace {

std::string dialogSection(const std::string& dialog) { return "Dialogs\\" + dialog; }

std::string dialogTitle(const FileDialogRequest& request)
{
    if (!request.title.empty()) return request.title;
    return request.forOpen ? "Open" : "Save As";
}

}  // namespace

bool HostUi::fileDialog(const FileDialogRequest& request, std::string& pathOut)
{
    std::string title = dialogTitle(request);
    bool interactive = answers_.interactive();
    if (err_ && interactive) {
        std::fprintf(err_, "%s (%s), in %s: ", title.c_str(), request.filter.c_str(), request.folder.c_str());
        std::fflush(err_);
    }
    bool mustExist = request.forOpen && (request.flags & OFN_FILEMUSTEXIST);
    auto pathOf = [](const Answer& a) { return a.kind == Answer::Kind::File ? a.path : a.text(); };
    auto isChoice = [&](const Answer& a) {
        bool typedPath = interactive && a.kind == Answer::Kind::Text;
        if (a.kind != Answer::Kind::File && !typedPath) return false;
        return a.fileCancelled || !mustExist || std::filesystem::exists(pathOf(a));
    };
    std::string asked = formatString("%s for the dialog \"%s\" (%s)", mustExist ? "an existing file (file PATH) or file <esc>" : "file PATH or file <esc>",
                                     title.c_str(), request.filter.c_str());
    Answer answer = answers_.next(asked, isChoice);
    bool cancelled = answer.kind == Answer::Kind::Esc || answer.fileCancelled;
    transcript_.fileDialog(title, request.filter, cancelled ? std::string("<esc>") : pathOf(answer));
    if (cancelled) return false;
    pathOut = pathOf(answer);
    return true;
}

bool HostUi::colorDialog(int initialColor, bool allowMetaColor, int& colorOut)
{
    int lowest = allowMetaColor ? 0 : 1;
    int highest = allowMetaColor ? 256 : 255;
    if (err_ && answers_.interactive()) {
        std::fprintf(err_, "Colour index (%d to %d) <%d>: ", lowest, highest, initialColor);
        std::fflush(err_);
    }
    auto isIndex = [&](const Answer& a) {
        return a.kind == Answer::Kind::Number && a.number == static_cast<int>(a.number) && a.number >= lowest && a.number <= highest;
    };
    Answer answer = answers_.next(formatString("a colour index from %d to %d or <esc> for the colour dialog", lowest, highest), isIndex);
    bool chosen = answer.kind == Answer::Kind::Number;
    if (chosen) colorOut = static_cast<int>(answer.number);
    transcript_.colorDialog(initialColor, chosen ? std::to_string(colorOut) : std::string("<esc>"));
    return chosen;
}

std::string HostUi::profileString(const std::string& section, const std::string& key, const std::string& defaultValue)
{
    return profile_.get(section, key, defaultValue);
}

bool HostUi::writeProfileString(const std::string& section, const std::string& key, const std::string& value)
{
    return profile_.set(section, key, value);
}

std::string HostUi::dialogData(const std::string& dialog, const std::string& key, const std::string& defaultValue)
{
    return profile_.get(dialogSection(dialog), key, defaultValue);
}

bool HostUi::setDialogData(const std::string& dialog, const std::string& key, const std::string& value)
{
    return profile_.set(dialogSection(dialog), key, value);
}

}  // namespace vorn
