// Group code / value pairs of DXF text files: reading a file into pairs,
// writing pairs, and the text encoding (UTF-8 inside, "\U+XXXX" escapes for
// non-ASCII characters in R2000 files).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/geom_types.h"

namespace vorn::host {

struct DxfPair {
    int code = 0;
    std::string value;

    double real() const;
    std::int64_t integer() const;
    std::uint64_t handle() const;  // hexadecimal
};

// Reads all pairs; false with `error` naming the line on a malformed file.
bool readDxfPairs(const std::string& path, std::vector<DxfPair>& out, std::string& error);

// Text of a file value to UTF-8: "\U+XXXX" escapes decoded; bytes of a
// code-page file that are no valid UTF-8 taken as Latin-1.
std::string decodeDxfText(const std::string& value);

class DxfOut {
public:
    void text(int code, const std::string& value);
    void real(int code, double value);
    void integer(int code, std::int64_t value);
    void handle(int code, std::uint64_t value);
    // A point as code, code + 10, code + 20.
    void point(int code, const Point3d& p);
    void point2d(int code, const Point2d& p);
    // One result buffer entry in its DXF form.
    void item(const ResultItem& item);
    const std::string& str() const { return out_; }

private:
    void code(int code);
    std::string out_;
};

}  // namespace vorn::host
