// The platform port: what the system needs of the CAD program. Four parts,
// each an abstract class of its own header:
//   DatabasePort  (drawing/database_port.h)  the drawing: entities by id,
//                 layers, dictionary and xrecords, groups, mline styles,
//                 extended data, selection sets, geometry of curves;
//   EditorPort    (drawing/editor_port.h)    prompts with status and value,
//                 keywords, picks, temporary vectors, status bar meter, user
//                 break, system variables, unit conversion, commands;
//   UiPort        (drawing/ui_port.h)        file dialogs and the profile
//                 (message boxes go through the reporting port);
//   PanelPort     (drawing/panel_port.h)     modal panels that declare their
//                 controls.
// Subsystem code reaches the platform only through these; a host installs
// its implementations here.
#pragma once

namespace vorn {

class DatabasePort;
class EditorPort;
class UiPort;
class PanelPort;

struct Platform {
    DatabasePort* database = nullptr;
    EditorPort* editor = nullptr;
    UiPort* ui = nullptr;
    PanelPort* panels = nullptr;
};

// The platform in use (all parts null until a host installs them).
Platform& platform();

// Installs a platform for the lifetime of the guard, restoring the old one.
class ScopedPlatform {
public:
    explicit ScopedPlatform(const Platform& p);
    ~ScopedPlatform();
    ScopedPlatform(const ScopedPlatform&) = delete;
    ScopedPlatform& operator=(const ScopedPlatform&) = delete;

private:
    Platform previous_;
};

}  // namespace vorn
