// The user interface of the stand-alone host: file dialogs answered by
// `file PATH` or `file <esc>` lines (a path typed at the terminal), the
// colour dialog by a colour index (a number line) or <esc>, and the
// profile in an INI file. Dialog data lives in the profile section
// "Dialogs\<dialog name>".
#pragma once

#include "drawing/ui_port.h"
#include "host/host_reporter.h"
#include "host/profile_ini.h"
#include "host/script_answers.h"
#include "host/transcript.h"

namespace vorn {

class HostUi : public UiPort {
public:
    HostUi(Answers& answers, Transcript& transcript, IniProfile& profile, std::FILE* err = stderr)
        : answers_(answers), transcript_(transcript), profile_(profile), err_(err)
    {
    }

    bool fileDialog(const FileDialogRequest& request, std::string& pathOut) override;
    bool colorDialog(int initialColor, bool allowMetaColor, int& colorOut) override;
    std::string profileString(const std::string& section, const std::string& key, const std::string& defaultValue) override;
    bool writeProfileString(const std::string& section, const std::string& key, const std::string& value) override;
    std::string dialogData(const std::string& dialog, const std::string& key, const std::string& defaultValue) override;
    bool setDialogData(const std::string& dialog, const std::string& key, const std::string& value) override;

private:
    Answers& answers_;
    Transcript& transcript_;
    IniProfile& profile_;
    std::FILE* err_;
};

}  // namespace vorn
