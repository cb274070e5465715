// Files written in one go: the text goes to a temporary file in the target's
// folder, which is renamed over the target only when everything was written.
// A failure, an early return or an interrupted process leaves the old file
// as it was and no partial file under its name.
#pragma once

#include <cstdio>
#include <string>

namespace vorn {

class ReplacingFile {
public:
    ReplacingFile() = default;
    // Removes the temporary unless the file was committed.
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // Creates the temporary beside `target`. Fails, with the file-exception
    // cause in `cause`, where opening the target itself for writing would:
    // a folder that is missing or not writable, a target that is a folder or
    // a read-only file.
    bool open(const std::string& target, int* cause = nullptr);
    bool isOpen() const { return stream_ != nullptr; }
    std::FILE* stream() const { return stream_; }
    const std::string& temporaryPath() const { return temporary_; }

    // Flushes, closes and renames the temporary over the target. False,
    // with the temporary removed and the target untouched, when a write
    // failed on the way or the rename failed.
    bool commit(int* cause = nullptr);
    // Closes and removes the temporary; the target stays as it was.
    void discard();

private:
    std::FILE* stream_ = nullptr;
    std::string target_;
    std::string temporary_;
    int slot_ = -1;
};

// Writes `bytes` to `target` through a ReplacingFile; false with `cause` set
// when it could not be opened or completed.
bool writeFileReplacing(const std::string& target, const std::string& bytes, int* cause = nullptr);

// Removes the temporaries of every ReplacingFile still open; safe to call
// from a signal handler (the user break calls it before the process ends).
void removePendingTemporaries();

}  // namespace vorn
