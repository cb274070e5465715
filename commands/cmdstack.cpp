#include "commands/cmdstack.h"

#include <algorithm>

#include "base/textnum.h"

bool AcEdCommandStack::addCommand(const std::string& group, const std::string& globalName,
                                  const std::string& localName, std::int32_t flags, AcRxFunctionPtr handler,
                                  void*, std::int32_t, void*, void*)
{
    for (const AcEdCommand& command : commands_) {
        if (command.group != group) continue;
        if (vorn::iequals(command.globalName, globalName) || vorn::iequals(command.localName, localName)) return false;
    }
    commands_.push_back({group, globalName, localName, flags, handler});
    return true;
}

bool AcEdCommandStack::removeCmd(const std::string& group, const std::string& globalName)
{
    auto found = std::find_if(commands_.begin(), commands_.end(), [&](const AcEdCommand& command) {
        return command.group == group && vorn::iequals(command.globalName, globalName);
    });
    if (found == commands_.end()) return false;
    commands_.erase(found);
    return true;
}

const AcEdCommand* AcEdCommandStack::lookupCmd(const std::string& typed) const
{
    bool global = !typed.empty() && typed.front() == '_';
    for (const AcEdCommand& command : commands_) {
        const std::string& name = global ? command.globalName : command.localName;
        if (vorn::iequals(name, typed)) return &command;
    }
    return nullptr;
}

AcEdCommandStack* acedRegCmds()
{
    static AcEdCommandStack stack;
    return &stack;
}
