// A small drawing for the polyline commands, one command run on it with a
// script, and the drawing as saved to DXF and read back.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

#include "host/docs_session.h"

namespace polyline_test {

using namespace vorn;

inline Entity onLayer(EntityShape shape, const std::string& layer = "0")
{
    Entity e;
    e.common.layer = layer;
    e.shape = std::move(shape);
    return e;
}

inline LwPolyline lw(const std::vector<Point2d>& points, bool closed, double elevation = 0.0)
{
    LwPolyline pl;
    for (const Point2d& p : points) pl.vertices.push_back({p});
    pl.closed = closed;
    pl.elevation = elevation;
    return pl;
}

inline LwPolyline square(double x, double y, double side, bool closed = true)
{
    return lw({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}, closed);
}

struct Outcome {
    int status = -1;
    std::string transcript;
    std::vector<ObjectId> highlighted;
    std::unique_ptr<host::HostDatabase> saved;  // the DXF read back

    // The saved entities of one DXF kind in drawing order.
    std::vector<Entity> entities(EntityKind kind) const
    {
        std::vector<Entity> out;
        for (ObjectId id : saved->modelSpace()) {
            Entity e;
            if (saved->readEntity(id, e) == eOk && e.kind() == kind) out.push_back(e);
        }
        return out;
    }
    size_t count() const { return saved->modelSpace().size(); }
    bool shows(const std::string& part) const { return transcript.find(part) != std::string::npos; }
};

class PolylineDrawing {
public:
    PolylineDrawing() : db_(std::make_unique<host::HostDatabase>()) {}

    ObjectId add(const Entity& entity)
    {
        ObjectId id;
        EXPECT_EQ(db_->appendToModelSpace(entity, id), eOk);
        return id;
    }
    ObjectId add(EntityShape shape, const std::string& layer = "0") { return add(onLayer(std::move(shape), layer)); }
    void layer(const std::string& name, bool locked = false, bool frozen = false)
    {
        LayerRecord record;
        record.name = name;
        record.locked = locked;
        record.frozen = frozen;
        ObjectId id;
        db_->addLayer(record, id);
    }

    // Runs the command with the script; the drawing is then saved and read
    // back. The drawing is used up.
    Outcome run(const std::string& command, const std::string& script)
    {
        AppSession app(std::move(db_), "");
        SessionOptions options;
        options.answering = SessionOptions::Answering::Script;
        options.scriptText = script;
        options.profilePath = "";
        options.out = nullptr;
        options.err = nullptr;
        std::string error;
        EXPECT_TRUE(app.open(options, false, error)) << error;
        Outcome outcome;
        outcome.status = app.runCommand(command);
        outcome.transcript = app.session().transcript().text();
        const auto& lit = app.session().editor().highlighted();
        outcome.highlighted.assign(lit.begin(), lit.end());
        std::string path = (std::filesystem::temp_directory_path() /
                            ("vorn_polyline_" + std::to_string(::getpid()) + ".dxf")).string();
        EXPECT_TRUE(saveDrawing(app.drawing(), path, error)) << error;
        outcome.saved = openDrawing(path, error);
        EXPECT_TRUE(outcome.saved) << error;
        std::filesystem::remove(path);
        return outcome;
    }

private:
    std::unique_ptr<host::HostDatabase> db_;
};

}  // namespace polyline_test
