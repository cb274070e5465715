// One feeder per file reader of the system: it writes the bytes to a
// scratch file and runs the reader over it the way the commands do. The
// libFuzzer targets call them with generated inputs; the regression test
// calls them with every input that ever crashed a reader. Readers talk
// through a reporter that keeps nothing, and a process end that the stress
// model asks for unwinds back here instead of ending the process.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "base/processend.h"
#include "base/report.h"
#include "generators/points_grid.h"
#include "grid/gisraster.h"
#include "grid/grid.h"
#include "host/db_database.h"
#include "host/dxf_codec.h"
#include "host/profile_ini.h"
#include "host/script_answers.h"
#include "index/stability_project.h"
#include "stressmodel/modeldat.h"
#include "stressmodel/topomodel.h"
#include "stressmodel/transfer.h"

namespace vornfuzz {

namespace fs = std::filesystem;

// Keeps nothing; every box gets its default button.
class SilentReporter : public vorn::Reporter {
public:
    void print(const std::string&) override {}
    int messageBox(const std::string&, const std::string&, unsigned type) override { return vorn::messageBoxDefault(type); }
    void console(const std::string&) override {}
};

// Raised by the process end handler so that a feeder returns.
struct ProcessEnded {
    int status;
};

inline void unwindOnProcessEnd(int status) { throw ProcessEnded{status}; }

// A folder of this process for the scratch files; the current folder for the
// duration of a feed, since the stress model writes its step files there.
inline const fs::path& scratchFolder()
{
    static const fs::path folder = [] {
        fs::path p = fs::temp_directory_path() / ("vorn_fuzz_" + std::to_string(::getpid()));
        fs::create_directories(p);
        return p;
    }();
    return folder;
}

inline std::string writeScratch(const std::string& name, std::string_view bytes)
{
    std::string path = (scratchFolder() / name).string();
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

// Runs `read` with the silent reporter, inside the scratch folder, with a
// requested process end turned into a return.
inline void guarded(const std::function<void()>& read)
{
    static SilentReporter silent;
    vorn::ScopedReporter quiet(silent);
    vorn::setProcessEndHandler(unwindOnProcessEnd);
    std::error_code ignored;
    fs::path previous = fs::current_path(ignored);
    fs::current_path(scratchFolder(), ignored);
    try {
        read();
    } catch (const ProcessEnded&) {
    }
    fs::current_path(previous, ignored);
    vorn::setProcessEndHandler(nullptr);
}

// Two files in one input: the part before the first "\n@@\n" and the rest.
inline std::pair<std::string_view, std::string_view> splitPair(std::string_view bytes)
{
    constexpr std::string_view kSeparator = "\n@@\n";
    size_t at = bytes.find(kSeparator);
    if (at == std::string_view::npos) return {bytes, {}};
    return {bytes.substr(0, at), bytes.substr(at + kSeparator.size())};
}

// A grid file read twice, as the commands read it: the lattice from the
// header alone, then the whole grid.
template <bool (myGrid::*read)(const std::string&, int)>
void feedGridFile(const char* name, std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch(name, bytes);
        myGrid lattice;
        (lattice.*read)(path, 0);
        myGrid grid;
        if ((grid.*read)(path, 1)) grid.describe(false);
    });
}

inline void feedGrd(std::string_view bytes) { feedGridFile<&myGrid::readGrd>("input.grd", bytes); }
inline void feedTop(std::string_view bytes) { feedGridFile<&myGrid::readTop>("input.top", bytes); }

// The model `.inp` and, after the separator, its topography `.top`.
inline void feedModel(std::string_view bytes)
{
    auto [input, topography] = splitPair(bytes);
    guarded([&, input = input, topography = topography] {
        std::string inputPath = writeScratch("model.inp", input);
        writeScratch("model.top", topography);
        CModelDat model;
        model.SetInputPath(inputPath);
        model.SetInputFile("model.inp");
        model.SetBaseName("model");
        if (model.ReadInput() == 0) model.FreeCodes();
        model.ReadTopography();
        model.FreeArrays();
    });
}

// The overburden model's `.tmp` input.
inline void feedOverburden(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("surface.tmp", bytes);
        CTopoModelDat model;
        model.SetInputPath(path);
        model.ReadInput();
    });
}

// An element file: the item list as `transfer --list` prints it, and the
// first and last item of the last step as `transfer` reads them.
inline void feedElementFile(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("model.f1", bytes);
        CElementFileReader reader;
        if (!reader.selectFile(path) || reader.rows().empty()) return;
        for (size_t row : {size_t{0}, reader.rows().size() - 1}) {
            myGrid grid;
            std::string failure;
            reader.readItem(reader.choiceOfRow(row), grid, failure);
        }
    });
}

// A drawing: loaded, then saved, as `drawing copy` does.
inline void feedDxf(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("drawing.dxf", bytes);
        vorn::host::HostDatabase db;
        vorn::host::DxfLoadResult result = vorn::host::loadDxf(path, db);
        if (!result.ok) return;
        std::string error;
        vorn::host::saveDxf((scratchFolder() / "copy.dxf").string(), db, error);
    });
}

// A script of answers for `vornmark run`: every line classified, then the
// lines taken as answers to an open panel until they run out.
inline void feedScript(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("answers.scr", bytes);
        std::string error;
        std::unique_ptr<vorn::ScriptSource> source = vorn::ScriptSource::fromFile(path, error);
        if (!source) return;
        std::unique_ptr<vorn::ScriptSource> again = vorn::ScriptSource::fromFile(path, error);
        while (std::optional<vorn::ScriptLine> line = again->nextLine()) {
            vorn::parseAnswerLine(*line);
            vorn::describeLine(*line);
        }
        vorn::Answers answers(std::move(source));
        try {
            for (int k = 0; k < 10000; ++k) {
                vorn::PanelAnswer answer = answers.nextPanelAnswer("Panel");
                if (answer.line.number == 0) break;
            }
        } catch (const vorn::ScriptError&) {
        }
    });
}

// The INI profile: loaded, read and written back.
inline void feedProfile(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("profile.ini", bytes);
        vorn::IniProfile profile(path);
        profile.get("Vornmark", "LastGrid", "");
        profile.set("Vornmark", "LastGrid", "a.grd");
        vorn::IniProfile again(path);
    });
}

// A stability project `.prj`: read, then written back as the panel saves it.
inline void feedProject(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("project.prj", bytes);
        std::vector<StabilityFactor> factors;
        if (readProject(path, factors) != ProjectReadStatus::Unopened) writeProject(path, factors);
    });
}

// The point import file of the points generator.
inline void feedPoints(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("points.txt", bytes);
        std::vector<vorn::Point3d> points;
        int cause = 0;
        vorn::readPointFile(path, points, cause);
    });
}

// A GIS raster through GDAL, as `grid info` and `grid convert` read it;
// the file name has no extension, so GDAL tells the format by the content.
inline void feedRaster(std::string_view bytes)
{
    guarded([&] {
        std::string path = writeScratch("raster", bytes);
        myGrid grid;
        std::string error;
        if (vorn::readRaster(path, grid, error)) grid.describe(false);
    });
}

// The feeders by the name of their folder of seeds and regressions.
inline const std::map<std::string, void (*)(std::string_view)>& feeders()
{
    static const std::map<std::string, void (*)(std::string_view)> table{
        {"grd", feedGrd},       {"top", feedTop},         {"model", feedModel},   {"overburden", feedOverburden},
        {"element", feedElementFile}, {"dxf", feedDxf}, {"script", feedScript}, {"profile", feedProfile},
        {"project", feedProject}, {"points", feedPoints},     {"raster", feedRaster},
    };
    return table;
}

}  // namespace vornfuzz
