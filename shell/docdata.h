// The per-document state: the record `CDocData` of each open document and
// the data manager that finds it, kept until the document goes away.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

// A document of the host; the shell only compares and passes them around.
class AcApDocument;

// A document reactor: told before a document is destroyed.
class AcApDocManagerReactor {
public:
    virtual ~AcApDocManagerReactor() = default;
    virtual void documentToBeDestroyed(AcApDocument* document) {}
};

// The document manager of the platform: which document is current, the
// reactors, and the module resource handle of commands that open dialogs.
class AcApDocManager {
public:
    AcApDocument* curDocument() const { return current_; }
    void setCurDocument(AcApDocument* document) { current_ = document; }
    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);
    // Tells the reactors that the document goes away.
    void notifyToBeDestroyed(AcApDocument* document);
    void pushResourceHandle() { ++resourceDepth_; }
    void popResourceHandle() { --resourceDepth_; }
    int resourceDepth() const { return resourceDepth_; }

private:
    AcApDocument* current_ = nullptr;
    std::vector<AcApDocManagerReactor*> reactors_;
    int resourceDepth_ = 0;
};

AcApDocManager* acDocManagerPtr();

// One roof defect setting; the roof defect catalogue gives its defaults.
struct CDefectRecord {
    int levelIndex = 0;
    std::string defectLayer;
    int defectColor = 0;
    std::string gridFile;
    std::string defectTitle;
    std::vector<double> reach;
    bool taper = false;
};

using CDefectRecords = std::array<CDefectRecord, 12>;

struct CDocData {
    std::string xNumText;
    std::string yNumText;
    std::string xCellText;
    std::string yCellText;
    std::string rotationText;
    std::string originXText;
    std::string originYText;
    CDefectRecords defects;
    bool defectsReady = false;
};

// The filler of the defect defaults, installed by the roof defect catalogue;
// empty while that catalogue is not part of the build.
using DefectDefaultsFiller = std::function<void(CDefectRecords&)>;
DefectDefaultsFiller& defectDefaultsFiller();

// The map from document to record. The one instance registers itself as a
// document reactor when it is made and drops a record with its document.
template <class T>
class AcApDataManager : public AcApDocManagerReactor {
public:
    AcApDataManager() { acDocManagerPtr()->addReactor(this); }
    ~AcApDataManager() override { acDocManagerPtr()->removeReactor(this); }
    AcApDataManager(const AcApDataManager&) = delete;
    AcApDataManager& operator=(const AcApDataManager&) = delete;

    T& docData(AcApDocument* document) { return records_[document]; }
    T& docData() { return docData(acDocManagerPtr()->curDocument()); }
    void documentToBeDestroyed(AcApDocument* document) override { records_.erase(document); }
    size_t recordCount() const { return records_.size(); }

private:
    std::map<AcApDocument*, T> records_;
};

// The module's data manager.
AcApDataManager<CDocData>& DocVars();
