// A session of the application in the stand-alone host: one drawing as the
// current document, the host's menu bar, the panel driver, and the
// application loaded into the command stack for the session's lifetime.
// `vornmark run` and `vornmark shell` are built on it.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "host/db_database.h"
#include "host/docs_manager.h"
#include "host/menu_bar.h"
#include "host/panel_driver.h"
#include "host/session.h"

namespace vorn {

// The drawing of a DXF file, or a new empty drawing for an empty path;
// nullptr with `error` when the file cannot be read.
std::unique_ptr<host::HostDatabase> openDrawing(const std::string& path, std::string& error);
// Writes the drawing as a DXF file; false with `error` on failure.
bool saveDrawing(const host::HostDatabase& drawing, const std::string& path, std::string& error);
// The folder of a file with its trailing separator; the current folder for
// an empty path.
std::string folderOf(const std::string& path);

class AppSession {
public:
    AppSession(std::unique_ptr<host::HostDatabase> drawing, std::string drawingPath);
    ~AppSession();
    AppSession(const AppSession&) = delete;
    AppSession& operator=(const AppSession&) = delete;

    // Opens the session's answers and output; `terminal` shows panels as
    // numbered forms on the terminal. Loads the application.
    bool open(SessionOptions options, bool terminal, std::string& error);

    // The platform's load and unload messages to the application; the menu
    // bar keeps whatever the application left on it.
    void load();
    void unload();
    bool loaded() const { return loaded_; }

    // True if a command of that name is registered (any case, with or
    // without the leading underscore).
    bool knowsCommand(const std::string& name) const;
    // Runs a command as typed on the command line; an unknown name gets the
    // platform's reply. Returns the session's status of the run.
    int runCommand(const std::string& name);

    Session& session() { return session_; }
    host::HostDatabase& drawing() { return *drawing_; }
    // Saves the drawing to `path`, or to its own file for an empty path.
    bool save(const std::string& path, std::string& error);
    const std::string& drawingPath() const { return drawingPath_; }
    HostMenuBar& menuBar() { return menuBar_; }

private:
    host::HostDatabase* drawing_;
    Session session_;
    std::string drawingPath_;
    HostMenuBar menuBar_;
    HostDocuments documents_;
    std::unique_ptr<PanelDriver> panels_;
    bool loaded_ = false;
};

// A session on the drawing of `path` (a new drawing for an empty path),
// opened and loaded; nullptr with `error` when the drawing or the session's
// files cannot be opened.
std::unique_ptr<AppSession> startSession(const std::string& path, const SessionOptions& options, bool terminal,
                                         std::string& error);

}  // namespace vorn
