#include "host/dxf_groups.h"

#include <charconv>
#include <cstdlib>
#include <fstream>

#include "base/textnum.h"

namespace vorn::host {

namespace {

std::string trimmed(const std::string& s)
{
    std::size_t a = s.find_first_not_of(" \t\r");
    if (a == std::string::npos) return {};
    std::size_t b = s.find_last_not_of(" \t\r");
    return s.substr(a, b - a + 1);
}

void appendUtf8(std::string& out, std::uint32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Length of the valid UTF-8 sequence at `i`, 0 when there is none.
std::size_t utf8Length(const std::string& s, std::size_t i, std::uint32_t& code)
{
    auto byte = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
    unsigned char c = byte(i);
    std::size_t n = c >= 0xF0 && c < 0xF8 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 0;
    if (n == 0 || i + n > s.size()) return 0;
    code = c & (0x7F >> n);
    for (std::size_t k = 1; k < n; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80) return 0;
        code = (code << 6) | (byte(i + k) & 0x3F);
    }
    return n;
}

bool hexDigits(const std::string& s, std::size_t i, std::uint32_t& code)
{
    if (i + 4 > s.size()) return false;
    auto [end, ec] = std::from_chars(s.data() + i, s.data() + i + 4, code, 16);
    return ec == std::errc() && end == s.data() + i + 4;
}

}  // namespace

double DxfPair::real() const { return _wtof(value.c_str()); }
std::int64_t DxfPair::integer() const { return std::strtoll(trimmed(value).c_str(), nullptr, 10); }
std::uint64_t DxfPair::handle() const { return std::strtoull(trimmed(value).c_str(), nullptr, 16); }

bool readDxfPairs(const std::string& path, std::vector<DxfPair>& out, std::string& error)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "cannot open " + path;
        return false;
    }
    std::string codeLine, valueLine;
    long line = 0;
    while (std::getline(in, codeLine)) {
        ++line;
        std::string code = trimmed(codeLine);
        if (code.empty() && in.peek() == EOF) break;
        int number = 0;
        auto [end, ec] = std::from_chars(code.data(), code.data() + code.size(), number);
        if (ec != std::errc() || end != code.data() + code.size()) {
            error = formatString("line %ld: group code expected, found \"%s\"", line, code.c_str());
            return false;
        }
        if (!std::getline(in, valueLine)) {
            error = formatString("line %ld: value missing after group code %d", line, number);
            return false;
        }
        ++line;
        if (!valueLine.empty() && valueLine.back() == '\r') valueLine.pop_back();
        out.push_back({number, valueLine});
        if (number == 0 && trimmed(valueLine) == "EOF") break;
    }
    return true;
}

std::string decodeDxfText(const std::string& value)
{
    std::string out;
    for (std::size_t i = 0; i < value.size();) {
        std::uint32_t code = 0;
        unsigned char c = static_cast<unsigned char>(value[i]);
        if (value.compare(i, 3, "\\U+") == 0 && hexDigits(value, i + 3, code)) {
            appendUtf8(out, code);
            i += 7;
        } else if (c < 0x80) {
            out += value[i++];
        } else if (std::size_t n = utf8Length(value, i, code); n > 0) {
            out.append(value, i, n);
            i += n;
        } else {
            appendUtf8(out, c);
            ++i;
        }
    }
    return out;
}

void DxfOut::code(int code)
{
    char buffer[16];
    int n = std::snprintf(buffer, sizeof buffer, "%3d\n", code);
    out_.append(buffer, static_cast<std::size_t>(n));
}

void DxfOut::text(int group, const std::string& value)
{
    code(group);
    for (std::size_t i = 0; i < value.size();) {
        std::uint32_t c = 0;
        std::size_t n = static_cast<unsigned char>(value[i]) >= 0x80 ? utf8Length(value, i, c) : 0;
        if (n > 0 && c < 0x10000) {
            out_ += formatString("\\U+%04X", static_cast<unsigned>(c));
            i += n;
        } else {
            char ch = value[i++];
            out_ += ch == '\n' || ch == '\r' ? ' ' : ch;
        }
    }
    out_ += '\n';
}

void DxfOut::real(int group, double value)
{
    code(group);
    char buffer[32];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    std::string text(buffer, end);
    if (text.find_first_of(".eEn") == std::string::npos) text += ".0";
    out_ += text;
    out_ += '\n';
}

void DxfOut::integer(int group, std::int64_t value)
{
    code(group);
    out_ += std::to_string(value);
    out_ += '\n';
}

void DxfOut::handle(int group, std::uint64_t value)
{
    code(group);
    out_ += formatString("%llX", static_cast<unsigned long long>(value));
    out_ += '\n';
}

void DxfOut::point(int group, const Point3d& p)
{
    real(group, p.x);
    real(group + 10, p.y);
    real(group + 20, p.z);
}

void DxfOut::point2d(int group, const Point2d& p)
{
    real(group, p.x);
    real(group + 10, p.y);
}

void DxfOut::item(const ResultItem& item)
{
    int group = item.restype;
    switch (group) {
    case RTSTR: group = 1; break;
    case RTREAL: group = 40; break;
    case RTSHORT: group = 70; break;
    case RTLONG: group = 90; break;
    case RTPOINT:
    case RT3DPOINT: group = 10; break;
    default: break;
    }
    switch (valueKindOfCode(group)) {
    case ValueKind::Text: text(group, item.text); break;
    case ValueKind::Real: real(group, item.real); break;
    case ValueKind::Integer: integer(group, item.integer); break;
    case ValueKind::Point: point(group, item.point); break;
    case ValueKind::EntityName: handle(group, static_cast<std::uint64_t>(item.integer)); break;
    }
}

}  // namespace vorn::host
