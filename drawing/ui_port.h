// The user interface part of the platform port: file dialogs and the
// profile, where panels keep a few values between runs (a section and key
// store, and per-dialog persistent values). Message boxes go through the
// reporting port (shell/report.h); modal panels through the panel port.
#pragma once

#include <string>

namespace vorn {

// File dialog flags of the platform.
enum FileDialogFlags : unsigned {
    OFN_OVERWRITEPROMPT = 0x2,
    OFN_HIDEREADONLY = 0x4,
    OFN_PATHMUSTEXIST = 0x800,
    OFN_FILEMUSTEXIST = 0x1000,
};

struct FileDialogRequest {
    bool forOpen = true;
    std::string title;             // empty: "Open" or "Save As"
    std::string defaultExtension;  // text of the default extension field
    std::string fileName;          // initial name
    std::string folder;            // initial folder
    unsigned flags = 0;
    std::string filter;            // "Text (*.txt)|*.txt|All files(*.*)|*.*||"
};

class UiPort {
public:
    virtual ~UiPort() = default;

    // Shows a file dialog: true with the chosen path, false on Cancel.
    virtual bool fileDialog(const FileDialogRequest& request, std::string& pathOut) = 0;

    // The colour dialog, starting on a colour index: true with the chosen
    // index (0 ByBlock and 256 ByLayer only with `allowMetaColor`), false
    // on Cancel.
    virtual bool colorDialog(int initialColor, bool allowMetaColor, int& colorOut) = 0;

    // The application profile: strings under a section and a key.
    virtual std::string profileString(const std::string& section, const std::string& key,
                                      const std::string& defaultValue) = 0;
    virtual bool writeProfileString(const std::string& section, const std::string& key, const std::string& value) = 0;

    // Values a dialog keeps between openings, under the dialog's name.
    virtual std::string dialogData(const std::string& dialog, const std::string& key, const std::string& defaultValue) = 0;
    virtual bool setDialogData(const std::string& dialog, const std::string& key, const std::string& value) = 0;
};

}  // namespace vorn

// The colour dialog of the installed platform; false without a ui.
bool acedSetColorDialogTrueColor(int& colorIndex, bool allowMetaColor, int currentLayerColor);
// The red, green and blue of a colour index of the standard palette, as
// 0x00BBGGRR; black for an index outside 1 to 255.
unsigned long acedGetRGB(int colorIndex);

// The profile calls as the system's code uses them, on the installed
// platform; without a ui the default comes back and writes fail.
std::string GetProfileString(const std::string& section, const std::string& key, const std::string& defaultValue = "");
bool WriteProfileString(const std::string& section, const std::string& key, const std::string& value);
int GetProfileInt(const std::string& section, const std::string& key, int defaultValue);
bool WriteProfileInt(const std::string& section, const std::string& key, int value);
