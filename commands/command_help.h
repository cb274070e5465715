// What each of the 32 commands does, for the help of the command line and
// of the interactive shell: the menu caption, a one-line description and
// the panel or frame it opens.
#pragma once

#include <string>
#include <vector>

namespace vorn {

struct CommandHelp {
    std::string name;         // the local command name, as typed
    std::string caption;      // the menu caption without '&', or "" when no menu item leads to it
    std::string description;  // one line
    std::string opens;        // the panel or frame it opens, or what it does instead
};

// The 32 commands in table order.
std::vector<CommandHelp> commandHelp();

// The entry of a typed command name (any case, leading underscore allowed);
// nullptr when no command has that name.
const CommandHelp* findCommandHelp(const std::string& typed);

// The listing: one line per command, the name padded to a column, then the
// caption in brackets and the description.
std::string commandListing();

// The several lines of `help COMMAND`.
std::string commandDetail(const CommandHelp& help);

}  // namespace vorn
