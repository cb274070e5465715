#include "host/docs_manager.h"

#include <algorithm>

#include "drawing/platform.h"

namespace vorn {

HostDocuments::~HostDocuments()
{
    while (!documents_.empty()) close(documents_.back().get());
}

AcApDocument* HostDocuments::open(DatabasePort& database, const std::string& fileName)
{
    documents_.push_back(std::make_unique<AcApDocument>(database, fileName));
    activate(documents_.back().get());
    return documents_.back().get();
}

void HostDocuments::activate(AcApDocument* document)
{
    acDocManagerPtr()->setCurDocument(document);
    platform().database = document ? &document->database() : nullptr;
}

void HostDocuments::close(AcApDocument* document)
{
    auto found = std::find_if(documents_.begin(), documents_.end(),
                              [&](const std::unique_ptr<AcApDocument>& open) { return open.get() == document; });
    if (found == documents_.end()) return;
    acDocManagerPtr()->notifyToBeDestroyed(document);
    bool wasCurrent = current() == nullptr || current() == document;
    documents_.erase(found);
    if (wasCurrent) activate(documents_.empty() ? nullptr : documents_.front().get());
}

}  // namespace vorn
