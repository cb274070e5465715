#include "base/textfile.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstring>

#include "base/textnum.h"

namespace vorn {

namespace {
constexpr size_t kBufferSize = 1 << 20;
}

int fileErrorCause(int errnoValue)
{
    switch (errnoValue) {
    case 0: return kFileNone;
    case ENOENT: return kFileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP: return kFileBadPath;
    case EMFILE:
    case ENFILE: return kFileTooManyOpen;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR: return kFileAccessDenied;
    case EBADF:
    case EINVAL: return kFileInvalid;
    case ESPIPE: return kFileBadSeek;
    case EIO: return kFileHardIO;
    case ETXTBSY:
    case EBUSY: return kFileSharingViolation;
    case ENOLCK: return kFileLockViolation;
    case ENOSPC:
    case EDQUOT: return kFileDiskFull;
    default: return kFileGeneric;
    }
}

std::string shiftedByCause(std::string_view text, int cause)
{
    if (cause <= 0) return std::string(text);
    if (static_cast<size_t>(cause) >= text.size()) return {};
    return std::string(text.substr(static_cast<size_t>(cause)));
}

TextReader::~TextReader() { close(); }

bool TextReader::open(const std::string& path, int* cause)
{
    close();
    errno = 0;
    file_ = std::fopen(path.c_str(), "rb");
    if (!file_) {
        if (cause) *cause = fileErrorCause(errno);
        return false;
    }
    struct stat status {};
    bool sized = ::fstat(::fileno(file_), &status) == 0 && S_ISREG(status.st_mode);
    size_ = sized ? static_cast<std::uint64_t>(status.st_size) : UINT64_MAX;
    // A small file gets a buffer of its own size: readers open many of them.
    size_t wanted = static_cast<size_t>(std::min<std::uint64_t>(size_, kBufferSize - 1)) + 1;
    if (!buffer_ || capacity_ < wanted) {
        buffer_ = std::make_unique_for_overwrite<char[]>(wanted);
        capacity_ = wanted;
    }
    taken_ = 0;
    begin_ = end_ = 0;
    eof_ = false;
    if (cause) *cause = kFileNone;
    return true;
}

void TextReader::close()
{
    if (file_) std::fclose(file_);
    file_ = nullptr;
}

bool TextReader::fill()
{
    if (eof_ || !file_) return false;
    if (begin_ > 0) {
        std::memmove(buffer_.get(), buffer_.get() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    size_t got = std::fread(buffer_.get() + end_, 1, capacity_ - end_, file_);
    if (got == 0) eof_ = true;
    end_ += got;
    taken_ += got;
    return got > 0;
}

bool TextReader::readLine(std::string& line)
{
    if (!file_) return false;
    line.clear();
    for (;;) {
        const char* start = buffer_.get() + begin_;
        const void* found = std::memchr(start, '\n', end_ - begin_);
        if (found) {
            const char* stop = static_cast<const char*>(found);
            line.append(start, stop);
            begin_ += static_cast<size_t>(stop - start) + 1;
            if (!line.empty() && line.back() == '\r') line.pop_back();
            return true;
        }
        // No line end in the buffer: keep what there is and read on.
        line.append(start, end_ - begin_);
        begin_ = end_ = 0;
        if (!fill()) {
            if (line.empty()) return false;
            if (line.back() == '\r') line.pop_back();
            return true;
        }
    }
}

std::uint64_t bytesLeft(std::FILE* file)
{
    struct stat status {};
    if (::fstat(::fileno(file), &status) != 0 || !S_ISREG(status.st_mode)) return UINT64_MAX;
    long position = std::ftell(file);
    if (position < 0) return UINT64_MAX;
    return status.st_size > position ? static_cast<std::uint64_t>(status.st_size - position) : 0;
}

std::uint64_t TextReader::bytesLeft() const
{
    if (!file_ || size_ == UINT64_MAX) return UINT64_MAX;
    std::uint64_t buffered = end_ - begin_;
    return size_ > taken_ ? size_ - taken_ + buffered : buffered;
}

TextWriter::~TextWriter()
{
    if (replacing_.isOpen()) {
        replacing_.discard();
        file_ = nullptr;
    }
    close();
}

bool TextWriter::openMode(const std::string& path, const char* mode, int* cause)
{
    close();
    errno = 0;
    if (mode) {
        file_ = std::fopen(path.c_str(), mode);
        if (!file_ && cause) *cause = fileErrorCause(errno);
    } else if (replacing_.open(path, cause)) {
        file_ = replacing_.stream();
    }
    if (!file_) return false;
    pending_.clear();
    failed_ = false;
    if (cause) *cause = kFileNone;
    return true;
}

bool TextWriter::open(const std::string& path, int* cause) { return openMode(path, "wb", cause); }
bool TextWriter::openAppend(const std::string& path, int* cause) { return openMode(path, "ab", cause); }
bool TextWriter::openReplacing(const std::string& path, int* cause) { return openMode(path, nullptr, cause); }

bool TextWriter::flush()
{
    if (!file_) return false;
    if (!pending_.empty() && std::fwrite(pending_.data(), 1, pending_.size(), file_) != pending_.size()) failed_ = true;
    pending_.clear();
    return !failed_;
}

bool TextWriter::close()
{
    if (!file_) return true;
    flush();
    if (replacing_.isOpen()) {
        if (failed_) replacing_.discard();
        else if (!replacing_.commit()) failed_ = true;
    } else if (std::fclose(file_) != 0) {
        failed_ = true;
    }
    file_ = nullptr;
    return !failed_;
}

void TextWriter::flushIfFull()
{
    if (pending_.size() >= kBufferSize) flush();
}

void TextWriter::write(std::string_view text)
{
    size_t from = 0;
    for (size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', from)) {
        pending_.append(text.data() + from, at - from);
        pending_.append("\r\n", 2);
        from = at + 1;
    }
    pending_.append(text.data() + from, text.size() - from);
    flushIfFull();
}

void TextWriter::writeRaw(std::string_view bytes)
{
    pending_.append(bytes);
    flushIfFull();
}

void TextWriter::printf(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = vformatString(format, args);
    va_end(args);
    write(text);
}

void TextWriter::writeFixed6(double value)
{
    appendFixed6(pending_, value);
    flushIfFull();
}

}  // namespace vorn
