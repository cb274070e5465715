// Lists of strings stored in the drawing: one xrecord per key in the
// dictionary VORN_STABILITY_DICTIONARY of the named objects dictionary.
#pragma once

#include <string>
#include <vector>

inline constexpr const char* kStabilityDictionaryName = "VORN_STABILITY_DICTIONARY";

// Replaces the xrecord under `key` with one of the strings (group code 1
// each). False for an empty list and on failure (with a message).
bool saveStringList(const std::string& key, const std::vector<std::string>& strings);
// The strings under `key`; false without a word when the dictionary or the
// key is missing, with a message on other failures.
bool loadStringList(const std::string& key, std::vector<std::string>& stringsOut);
