// A scripted host for wrapper tests: an empty drawing, the answers of a
// script, a profile in memory and a quiet terminal.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "drawing/create.h"
#include "host/db_database.h"
#include "host/session.h"

namespace vorn {

class ScriptedHost : public ::testing::Test {
protected:
    ScriptedHost() { start(""); }

    // A new session on an empty drawing answered by `script`.
    void start(const std::string& script)
    {
        session_ = std::make_unique<Session>(std::make_unique<host::HostDatabase>());
        SessionOptions options;
        options.answering = SessionOptions::Answering::Script;
        options.scriptText = script;
        options.profilePath = "";
        options.drawingFolder = "/plans/";
        options.out = nullptr;
        options.err = nullptr;
        std::string error;
        ASSERT_TRUE(session_->open(options, error)) << error;
    }

    // Answers the following requests with the lines of `script`.
    void answer(const std::string& script) { session_->answers().setSource(ScriptSource::fromText(script, "test.scr")); }

    // Runs `work` with the session's platform installed; the run's status.
    int run(const std::function<void()>& work)
    {
        return session_->run([&work] {
            work();
            return 0;
        });
    }

    // Adds a layer and a closed square polyline of side 10 at (x, y) on it.
    ObjectId addSquare(const std::string& layer, double x, double y)
    {
        ObjectId id;
        run([&] {
            LayerRecord record;
            ObjectId layerId;
            if (!session_->database().findLayer(layer, record)) {
                record.name = layer;
                session_->database().addLayer(record, layerId);
            }
            addPolylineFromPoints(id, {{x, y}, {x + 10, y}, {x + 10, y + 10}, {x, y + 10}}, true, 0.0, 1, layer);
        });
        return id;
    }

    const std::string& transcript() { return session_->transcript().text(); }
    DatabasePort& database() { return session_->database(); }
    HostEditor& editor() { return session_->editor(); }
    Session& session() { return *session_; }

private:
    std::unique_ptr<Session> session_;
};

}  // namespace vorn
