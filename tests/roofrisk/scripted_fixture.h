// Roof risk commands run by script over a drawing made in the test, in a
// scratch folder that is the drawing's folder (the current directory).
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

#include "../shell/cmd_scripted.h"
#include "grid/grid.h"
#include "host/db_database.h"

namespace fs = std::filesystem;

class RoofScript : public ::testing::Test {
protected:
    void SetUp() override
    {
        before = fs::current_path();
        dir = fs::temp_directory_path() / ("vorn_rfri_script_" + std::to_string(::getpid()));
        fs::remove_all(dir);
        fs::create_directories(dir);
        fs::current_path(dir);
        drawing = std::make_unique<vorn::host::HostDatabase>();
    }
    void TearDown() override
    {
        fs::current_path(before);
        fs::remove_all(dir);
    }

    // A lightweight polyline on `layer` with a constant width; the layer is
    // made when missing.
    vorn::ObjectId addFeature(const std::string& layer, const std::vector<vorn::Point2d>& points, double width,
                              bool closed = true)
    {
        vorn::LayerRecord record;
        record.name = layer;
        vorn::ObjectId layerId;
        if (!drawing->findLayer(layer, record)) drawing->addLayer(record, layerId);
        vorn::LwPolyline polyline;
        for (const vorn::Point2d& p : points) polyline.vertices.push_back({p, 0.0, -1.0, -1.0});
        polyline.closed = closed;
        polyline.constantWidth = width;
        vorn::Entity entity{{}, polyline};
        entity.common.layer = layer;
        vorn::ObjectId id;
        drawing->appendToModelSpace(entity, id);
        return id;
    }

    // Runs the command over the drawing (which the run then owns) and
    // keeps the transcript; returns the command's status.
    int run(const std::string& command, const std::string& script)
    {
        db = drawing.get();
        app = std::make_unique<ScriptedApp>(script, std::move(drawing));
        int status = app->run(command);
        text = app->transcript();
        return status;
    }

    bool shows(const std::string& part) const { return text.find(part) != std::string::npos; }

    // The grid of a file in the folder; fails the test when it does not read.
    myGrid gridFile(const std::string& name)
    {
        myGrid grid;
        EXPECT_TRUE(grid.readGrd((dir / name).string())) << name;
        return grid;
    }

    std::vector<vorn::Entity> entities() const
    {
        std::vector<vorn::Entity> all;
        for (vorn::ObjectId id : db->modelSpace()) {
            vorn::Entity entity;
            db->readEntity(id, entity);
            all.push_back(entity);
        }
        return all;
    }

    fs::path before;
    fs::path dir;
    std::unique_ptr<vorn::host::HostDatabase> drawing;
    vorn::host::HostDatabase* db = nullptr;
    std::unique_ptr<ScriptedApp> app;
    std::string text;
};

inline std::vector<vorn::Point2d> square(double x0, double y0, double x1, double y1)
{
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}
