#include "commands/vornapp.h"

#include "commands/menu.h"

AcRx::AppRetCode AcRxDbxApp::dispatch(AcRx::AppMsgCode message, void* appToken)
{
    switch (message) {
    case AcRx::kInitAppMsg: return On_kInitAppMsg(appToken);
    case AcRx::kUnloadAppMsg: return On_kUnloadAppMsg(appToken);
    default: return AcRx::kRetOK;  // the other messages keep the application loaded
    }
}

// Records the token and registers the command table, in table order. The
// application has no classes and no LISP functions to register.
AcRx::AppRetCode AcRxDbxApp::On_kInitAppMsg(void* appToken)
{
    appToken_ = appToken;
    int count = 0;
    const VornCommandEntry* table = vornCommandTable(count);
    for (int k = 0; k < count; ++k) {
        const VornCommandEntry& entry = table[k];
        if (!entry.globalName) continue;
        acedRegCmds()->addCommand(entry.group, entry.globalName, entry.localName, entry.flags, entry.handler,
                                  entry.contextMenu, entry.resourceId, instance_, nullptr);
    }
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*)
{
    int count = 0;
    const VornCommandEntry* table = vornCommandTable(count);
    for (int k = 0; k < count; ++k)
        if (table[k].globalName) acedRegCmds()->removeCmd(table[k].group, table[k].globalName);
    return AcRx::kRetOK;
}

// Loading ends with the menu builder, which toggles the pull-down.
AcRx::AppRetCode CVornmarkApp::On_kInitAppMsg(void* appToken)
{
    AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(appToken);
    vorn::installMenu(buildVornMenu());
    return result;
}

CVornmarkApp& vornmarkApp()
{
    static CVornmarkApp app;
    return app;
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appToken)
{
    return vornmarkApp().dispatch(message, appToken);
}

extern "C" int acrxGetApiVersion() { return 24; }
