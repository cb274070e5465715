#include "host/profile_ini.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/host_text.h"
#include "base/atomicfile.h"
#include "base/textnum.h"

namespace vorn {

std::string IniProfile::defaultPath()
{
    if (const char* explicitPath = std::getenv("VORNMARK_PROFILE"); explicitPath && *explicitPath) return explicitPath;
    std::filesystem::path base(".");
    if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config) base = config;
    else if (const char* home = std::getenv("HOME"); home && *home) base = std::filesystem::path(home) / ".config";
    return (base / "vornmark" / "profile.ini").string();
}

IniProfile::IniProfile(std::string path) : path_(std::move(path)) { load(); }

void IniProfile::load()
{
    if (path_.empty()) return;
    std::ifstream in(path_);
    std::string line;
    Section* current = nullptr;
    while (std::getline(in, line)) {
        line = trimBlanks(line);
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            std::string name = line.substr(1, line.size() - 2);
            current = findSection(name);
            if (!current) {
                sections_.push_back({name, {}});
                current = &sections_.back().second;
            }
            continue;
        }
        size_t equals = line.find('=');
        if (!current || equals == std::string::npos) continue;
        current->push_back({trimBlanks(line.substr(0, equals)), trimBlanks(line.substr(equals + 1))});
    }
}

bool IniProfile::save() const
{
    if (path_.empty()) return true;
    std::error_code ignored;
    std::filesystem::path file(path_);
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), ignored);
    std::string text;
    for (const auto& [name, entries] : sections_) {
        text += '[' + name + "]\n";
        for (const auto& [key, value] : entries) text += key + '=' + value + '\n';
        text += '\n';
    }
    return writeFileReplacing(path_, text);
}

IniProfile::Section* IniProfile::findSection(const std::string& name)
{
    for (auto& [sectionName, entries] : sections_) {
        if (iequals(sectionName, name)) return &entries;
    }
    return nullptr;
}

const IniProfile::Section* IniProfile::findSection(const std::string& name) const
{
    return const_cast<IniProfile*>(this)->findSection(name);
}

std::string IniProfile::get(const std::string& section, const std::string& key, const std::string& defaultValue) const
{
    if (const Section* entries = findSection(section)) {
        for (const auto& [entryKey, value] : *entries) {
            if (iequals(entryKey, key)) return value;
        }
    }
    return defaultValue;
}

bool IniProfile::set(const std::string& section, const std::string& key, const std::string& value)
{
    Section* entries = findSection(section);
    if (!entries) {
        sections_.push_back({section, {}});
        entries = &sections_.back().second;
    }
    bool found = false;
    for (auto& [entryKey, entryValue] : *entries) {
        if (iequals(entryKey, key)) {
            entryValue = value;
            found = true;
        }
    }
    if (!found) entries->push_back({key, value});
    return save();
}

}  // namespace vorn
