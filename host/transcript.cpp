#include "host/transcript.h"

#include <cstdio>

namespace vorn {

void Transcript::answered(const std::string& answer)
{
    text_ += answer;
    text_ += '\n';
}

void Transcript::bracketLine(const std::string& line)
{
    if (!text_.empty() && text_.back() != '\n') text_ += '\n';
    text_ += '[' + line + "]\n";
}

void Transcript::messageBox(const std::string& text, const std::string& caption, const std::string& answer)
{
    bracketLine("box \"" + caption + "\": " + text + " -> " + answer);
}

void Transcript::fileDialog(const std::string& title, const std::string& filter, const std::string& answer)
{
    bracketLine("file dialog \"" + title + "\" (" + filter + ") -> " + answer);
}

void Transcript::colorDialog(int initialColor, const std::string& answer)
{
    bracketLine("colour dialog starting on " + std::to_string(initialColor) + " -> " + answer);
}

void Transcript::panel(const std::string& note) { bracketLine("panel " + note); }

bool Transcript::writeTo(const std::string& path) const
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    bool written = std::fwrite(text_.data(), 1, text_.size(), file) == text_.size();
    return std::fclose(file) == 0 && written;
}

}  // namespace vorn
