#include "drawing/stringlist.h"

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "base/report.h"

using vorn::ObjectId;
using vorn::ObjectKind;

namespace {

vorn::DatabasePort& database() { return *vorn::platform().database; }

bool fail(const char* message)
{
    acutPrintf("%s", message);
    return false;
}

// Our dictionary, added when missing; null with a message on failure.
ObjectId openOrAddOurDictionary(ObjectId namedObjects)
{
    ObjectId ours;
    if (database().dictionaryGetAt(namedObjects, kStabilityDictionaryName, ours) != vorn::eOk) {
        if (database().addDictionary(namedObjects, kStabilityDictionaryName, ours) != vorn::eOk) {
            fail("\nCannot add our dictionary in the AutoCAD NOD!");
            return {};
        }
        return ours;
    }
    ObjectKind kind = database().kindOf(ours);
    if (kind == ObjectKind::None) fail("\nCannot open the object for write.");
    else if (kind != ObjectKind::Dictionary) fail("\nEntry found in the NOD, but it is not a dictionary.");
    return kind == ObjectKind::Dictionary ? ours : ObjectId{};
}

}  // namespace

bool saveStringList(const std::string& key, const std::vector<std::string>& strings)
{
    ObjectId namedObjects = database().namedObjectsDictionary();
    if (database().kindOf(namedObjects) != ObjectKind::Dictionary) return fail("\nUnable to open the NOD! Aborting...");
    ObjectId ours = openOrAddOurDictionary(namedObjects);
    if (ours.isNull()) return false;
    ObjectId old;
    if (database().dictionaryGetAt(ours, key, old) == vorn::eOk && database().erase(old) != vorn::eOk) {
        return fail("\nEntry cannot be opened for write.");
    }
    if (strings.empty()) return false;
    vorn::ResultBuffer chain;
    for (const std::string& text : strings) chain.push_back(vorn::ResultItem::ofText(1, text));
    ObjectId record;
    if (database().addXrecord(ours, key, chain, record) != vorn::eOk) return fail("\nFailed to add the new record in the dictionary.");
    return true;
}

bool loadStringList(const std::string& key, std::vector<std::string>& stringsOut)
{
    ObjectId namedObjects = database().namedObjectsDictionary();
    if (database().kindOf(namedObjects) != ObjectKind::Dictionary) return fail("\nUnable to open the NOD! Aborting...");
    ObjectId ours;
    if (database().dictionaryGetAt(namedObjects, kStabilityDictionaryName, ours) != vorn::eOk) return false;
    ObjectKind kind = database().kindOf(ours);
    if (kind == ObjectKind::None) return fail("\nCannot open the object for read.");
    if (kind != ObjectKind::Dictionary) return fail("\nEntry found in the NOD, but it is not a dictionary.");
    ObjectId record;
    if (database().dictionaryGetAt(ours, key, record) != vorn::eOk) return false;
    kind = database().kindOf(record);
    if (kind == ObjectKind::None) return fail("\nEntry cannot be opened for read.");
    if (kind != ObjectKind::Xrecord) return fail("\nEntry found in the NOD, but it is not a xRecord.");
    vorn::ResultBuffer chain;
    if (database().readXrecord(record, chain) != vorn::eOk) return fail("\nEntry cannot be opened for read.");
    stringsOut.clear();
    for (const vorn::ResultItem& item : chain) stringsOut.push_back(item.text);
    return true;
}
