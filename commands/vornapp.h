// The application object and its entry point: the platform sends the
// module its AcRx messages through acrxEntryPoint, which dispatches them to
// the application frame.
#pragma once

#include <cstdint>

#include "commands/cmdstack.h"

namespace AcRx {
enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
    kSuspendMsg = 16,
};
enum AppRetCode { kRetOK = 0, kRetError = 3 };
}  // namespace AcRx

// One entry of the command table.
struct VornCommandEntry {
    const char* group;
    const char* globalName;
    const char* localName;
    std::int32_t flags;
    AcRxFunctionPtr handler;
    void* contextMenu;
    std::int32_t resourceId;
};

// The 32 commands in table order.
const VornCommandEntry* vornCommandTable(int& count);

// The frame of the wizard applications. Only loading and unloading carry
// behaviour; every other message keeps the application loaded.
class AcRxDbxApp {
public:
    AcRxDbxApp() = default;
    virtual ~AcRxDbxApp() = default;
    AcRx::AppRetCode dispatch(AcRx::AppMsgCode message, void* appToken);

    bool unlocked = true;
    bool mdiAware = true;

protected:
    virtual AcRx::AppRetCode On_kInitAppMsg(void* appToken);
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void* appToken);

    void* appToken_ = nullptr;
    void* instance_ = nullptr;
};

class AcRxArxApp : public AcRxDbxApp {};

class CVornmarkApp : public AcRxArxApp {
protected:
    AcRx::AppRetCode On_kInitAppMsg(void* appToken) override;
};

// The module's interface: the platform's messages and its version question.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appToken);
extern "C" int acrxGetApiVersion();

// The module's application object.
CVornmarkApp& vornmarkApp();
