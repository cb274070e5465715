// The command stack of the platform ("ACAD_REGISTERED_COMMANDS"): commands
// registered by group, looked up by name without regard to case.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using AcRxFunctionPtr = void (*)();

enum : std::int32_t { ACRX_CMD_TRANSPARENT = 1, ACRX_CMD_MODAL = 0 };

struct AcEdCommand {
    std::string group;
    std::string globalName;
    std::string localName;
    std::int32_t flags = 0;
    AcRxFunctionPtr handler = nullptr;
};

class AcEdCommandStack {
public:
    // Registers a command; false if the group already has a command of
    // either name.
    bool addCommand(const std::string& group, const std::string& globalName, const std::string& localName,
                    std::int32_t flags, AcRxFunctionPtr handler, void* contextMenu = nullptr,
                    std::int32_t resourceId = -1, void* resourceHandle = nullptr, void* dataBlock = nullptr);
    // Removes the command of that global name from the group.
    bool removeCmd(const std::string& group, const std::string& globalName);

    // The command that a typed name calls: the name is matched without
    // regard to case against the local name, or with a leading underscore
    // against the global name. nullptr for an unknown command.
    const AcEdCommand* lookupCmd(const std::string& typed) const;
    const std::vector<AcEdCommand>& commands() const { return commands_; }

private:
    std::vector<AcEdCommand> commands_;
};

// The registry's command stack.
AcEdCommandStack* acedRegCmds();
