// The profile of the stand-alone host: an INI file of sections and keys,
// at $VORNMARK_PROFILE, else $XDG_CONFIG_HOME/vornmark/profile.ini (with
// ~/.config when XDG_CONFIG_HOME is not set). Each write saves the file, so
// values outlive a run that ends early.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vorn {

class IniProfile {
public:
    // The profile path from the environment.
    static std::string defaultPath();

    IniProfile() = default;
    // Loads `path` (a missing file is an empty profile); an empty path keeps
    // the profile in memory only.
    explicit IniProfile(std::string path);

    std::string get(const std::string& section, const std::string& key, const std::string& defaultValue) const;
    // Sets a value and saves the file; false when the file cannot be written.
    bool set(const std::string& section, const std::string& key, const std::string& value);
    const std::string& path() const { return path_; }

private:
    using Section = std::vector<std::pair<std::string, std::string>>;

    void load();
    bool save() const;
    Section* findSection(const std::string& name);
    const Section* findSection(const std::string& name) const;

    std::string path_;
    std::vector<std::pair<std::string, Section>> sections_;  // in file order
};

}  // namespace vorn
