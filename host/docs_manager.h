// The open documents of the stand-alone host. Each document has its
// drawing (owned by whoever opened it); making a document current installs its drawing as the
// platform's database and tells the shell's document manager. Closing a
// document tells the document reactors before it goes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "drawing/database_port.h"
#include "shell/docdata.h"

class AcApDocument {
public:
    AcApDocument(vorn::DatabasePort& database, std::string fileName) : database_(database), fileName_(std::move(fileName))
    {
    }
    vorn::DatabasePort& database() { return database_; }
    const std::string& fileName() const { return fileName_; }
    void setFileName(const std::string& name) { fileName_ = name; }

private:
    vorn::DatabasePort& database_;
    std::string fileName_;
};

namespace vorn {

class HostDocuments {
public:
    HostDocuments() = default;
    ~HostDocuments();
    HostDocuments(const HostDocuments&) = delete;
    HostDocuments& operator=(const HostDocuments&) = delete;

    // Adds a document for the drawing and makes it current.
    AcApDocument* open(DatabasePort& database, const std::string& fileName);
    void activate(AcApDocument* document);
    // Closes a document; the first one left becomes current.
    void close(AcApDocument* document);
    AcApDocument* current() const { return acDocManagerPtr()->curDocument(); }
    size_t count() const { return documents_.size(); }

private:
    std::vector<std::unique_ptr<AcApDocument>> documents_;
};

}  // namespace vorn
