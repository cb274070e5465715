// System variables as the system reads and writes them.
#pragma once

#include <string>

// The value of a variable; 0, 0.0 or "" when it cannot be read. A string
// comes back only when the reply is a string.
int getIntVar(const char* name);
double getRealVar(const char* name);
std::string getStringVar(const char* name);
// Write a variable; the platform's status (RTNORM on success).
int setIntVar(const char* name, int value);
int setStringVar(const char* name, const std::string& value);
// CMDECHO to 1 for any n of 1 or above, else to n.
int setCmdEcho(int n);
