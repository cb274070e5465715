// Buffered text files in the platform's text mode: lines end in CR LF on
// disk, readers accept a lone LF too, and a failed open gives the classic
// file-exception cause code.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "base/atomicfile.h"

namespace vorn {

// File-exception cause codes of the platform.
enum FileErrorCause : int {
    kFileNone = 0,
    kFileGeneric = 1,
    kFileNotFound = 2,
    kFileBadPath = 3,
    kFileTooManyOpen = 4,
    kFileAccessDenied = 5,
    kFileInvalid = 6,
    kFileRemoveCurrentDir = 7,
    kFileDirectoryFull = 8,
    kFileBadSeek = 9,
    kFileHardIO = 10,
    kFileSharingViolation = 11,
    kFileLockViolation = 12,
    kFileDiskFull = 13,
    kFileEndOfFile = 14,
};

// Maps an errno value onto a cause code.
int fileErrorCause(int errnoValue);

// A message text that the platform builds by adding the cause code to the
// address of the literal: the text loses as many leading characters.
std::string shiftedByCause(std::string_view text, int cause);

// The bytes of an open file after its read position; the largest value for
// a stream whose size is unknown.
std::uint64_t bytesLeft(std::FILE* file);

// Reads a text file line by line through a large buffer.
class TextReader {
public:
    TextReader() = default;
    ~TextReader();
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;

    // Opens for reading; on failure returns false and sets `cause`.
    bool open(const std::string& path, int* cause = nullptr);
    bool isOpen() const { return file_ != nullptr; }
    void close();
    // The next line without its line end (LF, or CR LF). False at the end
    // of the file when nothing is left; a last line without a line end is
    // still a line.
    bool readLine(std::string& line);
    // The bytes not yet read, to refuse a header that claims more values
    // than the file can hold before anything is allocated for them; the
    // largest value for a stream whose size is unknown.
    std::uint64_t bytesLeft() const;

private:
    bool fill();

    std::FILE* file_ = nullptr;
    std::uint64_t size_ = 0;
    std::uint64_t taken_ = 0;  // bytes moved from the file into the buffer
    std::unique_ptr<char[]> buffer_;
    size_t capacity_ = 0;
    size_t begin_ = 0;
    size_t end_ = 0;
    bool eof_ = false;
};

// Writes a text file through a large buffer; every "\n" becomes CR LF.
class TextWriter {
public:
    TextWriter() = default;
    ~TextWriter();
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    // Creates or truncates the file; on failure returns false and sets `cause`.
    bool open(const std::string& path, int* cause = nullptr);
    // Opens for appending at the end of an existing file (created if missing).
    bool openAppend(const std::string& path, int* cause = nullptr);
    // For a file written in one go: the text goes to a temporary beside
    // `path` that close() renames over it when every write succeeded. A
    // writer destroyed before close() leaves the old file as it was.
    bool openReplacing(const std::string& path, int* cause = nullptr);
    bool isOpen() const { return file_ != nullptr; }
    // Flushes and closes (and, opened replacing, puts the file in place);
    // false if a write failed on the way.
    bool close();

    void write(std::string_view text);
    void printf(const char* format, ...) __attribute__((format(printf, 2, 3)));
    // A value as "%f", without the cost of a formatted print.
    void writeFixed6(double value);
    // Text written as it is, without line end translation.
    void writeRaw(std::string_view bytes);

private:
    bool openMode(const std::string& path, const char* mode, int* cause);
    void flushIfFull();
    bool flush();

    std::FILE* file_ = nullptr;
    ReplacingFile replacing_;
    std::string pending_;
    bool failed_ = false;
};

}  // namespace vorn
