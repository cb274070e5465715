#include "drawing/sysvars.h"

#include "drawing/editor_port.h"

int getIntVar(const char* name)
{
    vorn::ResultItem value;
    if (acedGetVar(name, value) != RTNORM) return 0;
    return static_cast<int>(value.integer);
}

double getRealVar(const char* name)
{
    vorn::ResultItem value;
    if (acedGetVar(name, value) != RTNORM) return 0.0;
    return value.real;
}

std::string getStringVar(const char* name)
{
    vorn::ResultItem value;
    if (acedGetVar(name, value) != RTNORM || value.restype != vorn::RTSTR) return {};
    return value.text;
}

int setIntVar(const char* name, int value) { return acedSetVar(name, vorn::ResultItem::ofInt(vorn::RTSHORT, value)); }

int setStringVar(const char* name, const std::string& value) { return acedSetVar(name, vorn::ResultItem::ofText(vorn::RTSTR, value)); }

int setCmdEcho(int n) { return setIntVar("CMDECHO", n >= 1 ? 1 : n); }
