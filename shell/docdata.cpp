#include "shell/docdata.h"

#include <algorithm>

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor) { reactors_.push_back(reactor); }

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor)
{
    reactors_.erase(std::remove(reactors_.begin(), reactors_.end(), reactor), reactors_.end());
}

void AcApDocManager::notifyToBeDestroyed(AcApDocument* document)
{
    std::vector<AcApDocManagerReactor*> told = reactors_;
    for (AcApDocManagerReactor* reactor : told) reactor->documentToBeDestroyed(document);
    if (current_ == document) current_ = nullptr;
}

AcApDocManager* acDocManagerPtr()
{
    static AcApDocManager manager;
    return &manager;
}

DefectDefaultsFiller& defectDefaultsFiller()
{
    static DefectDefaultsFiller filler;
    return filler;
}

AcApDataManager<CDocData>& DocVars()
{
    static AcApDataManager<CDocData> manager;
    return manager;
}

namespace {
// The manager exists, and watches the documents, from the time the module is
// mapped.
[[maybe_unused]] AcApDataManager<CDocData>& moduleDataManager = DocVars();
}  // namespace
