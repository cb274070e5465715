// DXF drawings of the stand-alone host: load into and save from the
// in-memory database. Saved files are DXF R2000 (AC1015) text. What survives
// a round trip: layers with colour, linetype, on/off, frozen and locked;
// the current layer; linetype names; registered applications; every entity
// kind of the database with layer, colour, linetype, visibility, extended
// data, widths, elevation, bulges and closed flags; the named dictionary
// with its dictionaries and xrecords; groups; mline styles. Regions are
// saved as closed boundary polylines on their layer (one per ring) and
// come back as such. Entities of other kinds and paper space are skipped
// on loading and counted.
#pragma once

#include <map>
#include <string>

#include "host/db_database.h"

namespace vorn::host {

struct DxfLoadResult {
    bool ok = false;
    std::string error;                  // why loading failed
    std::map<std::string, int> skipped;  // entity types not read, with counts
};

// Loads a DXF file into an empty database.
DxfLoadResult loadDxf(const std::string& path, HostDatabase& db);

// Saves the database; false with `error` set when the file cannot be written
// (nothing is left half written under the name: the text goes to a
// temporary file that replaces the target at the end).
bool saveDxf(const std::string& path, const HostDatabase& db, std::string& error);

}  // namespace vorn::host
