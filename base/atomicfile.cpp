#include "base/atomicfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>

#include "base/textfile.h"
#include "base/textnum.h"

namespace vorn {

namespace {

// The temporaries of open files, kept in fixed slots so that a signal
// handler can remove them without allocating or locking.
constexpr int kSlotCount = 64;
struct PendingSlot {
    std::atomic<bool> claimed{false};
    std::atomic<bool> ready{false};  // the path is complete
    char path[PATH_MAX];
};
PendingSlot pendingSlots[kSlotCount];

int claimSlot(const std::string& path)
{
    if (path.size() >= PATH_MAX) return -1;
    for (int k = 0; k < kSlotCount; ++k) {
        PendingSlot& slot = pendingSlots[k];
        bool expected = false;
        if (!slot.claimed.compare_exchange_strong(expected, true)) continue;
        std::memcpy(slot.path, path.c_str(), path.size() + 1);
        slot.ready.store(true);
        return k;
    }
    return -1;
}

void releaseSlot(int& slot)
{
    if (slot >= 0) {
        pendingSlots[slot].ready.store(false);
        pendingSlots[slot].claimed.store(false);
    }
    slot = -1;
}

std::atomic<unsigned> temporaryCounter{0};

void setCause(int* cause, int errnoValue)
{
    if (cause) *cause = fileErrorCause(errnoValue);
}

// The folder part of `path` with its slash ("" for a bare name) and the name.
void splitPath(const std::string& path, std::string& folder, std::string& name)
{
    size_t slash = path.find_last_of('/');
    folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    name = slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

ReplacingFile::~ReplacingFile() { discard(); }

bool ReplacingFile::open(const std::string& target, int* cause)
{
    discard();
    struct stat existing {};
    bool exists = ::stat(target.c_str(), &existing) == 0;
    if (exists && S_ISDIR(existing.st_mode)) {
        setCause(cause, EISDIR);
        return false;
    }
    if (exists && ::access(target.c_str(), W_OK) != 0) {
        setCause(cause, errno);
        return false;
    }
    std::string folder, name;
    splitPath(target, folder, name);
    const mode_t mode = exists ? (existing.st_mode & 07777) : 0666;
    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        temporary_ = folder + "." + name + formatString(".%d-%u.part", static_cast<int>(::getpid()), temporaryCounter++);
        fd = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) {
        setCause(cause, errno);
        temporary_.clear();
        return false;
    }
    // The new file keeps the permissions of the one it replaces.
    if (exists) (void)::fchmod(fd, mode);
    slot_ = claimSlot(temporary_);
    stream_ = ::fdopen(fd, "wb");
    if (!stream_) {
        int error = errno;
        ::close(fd);
        discard();
        setCause(cause, error);
        return false;
    }
    target_ = target;
    setCause(cause, 0);
    return true;
}

bool ReplacingFile::commit(int* cause)
{
    if (!stream_) {
        setCause(cause, EBADF);
        return false;
    }
    bool written = std::fflush(stream_) == 0 && !std::ferror(stream_);
    int error = written ? 0 : errno;
    if (std::fclose(stream_) != 0 && written) {
        written = false;
        error = errno;
    }
    stream_ = nullptr;
    if (written && std::rename(temporary_.c_str(), target_.c_str()) != 0) {
        written = false;
        error = errno;
    }
    if (!written) {
        discard();
        setCause(cause, error == 0 ? EIO : error);
        return false;
    }
    temporary_.clear();
    releaseSlot(slot_);
    setCause(cause, 0);
    return true;
}

void ReplacingFile::discard()
{
    // The cause of the failure that led here stays in errno.
    const int error = errno;
    if (stream_) std::fclose(stream_);
    stream_ = nullptr;
    if (!temporary_.empty()) std::remove(temporary_.c_str());
    temporary_.clear();
    releaseSlot(slot_);
    errno = error;
}

bool writeFileReplacing(const std::string& target, const std::string& bytes, int* cause)
{
    ReplacingFile file;
    if (!file.open(target, cause)) return false;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.stream()) != bytes.size()) {
        setCause(cause, errno == 0 ? EIO : errno);
        return false;
    }
    return file.commit(cause);
}

void removePendingTemporaries()
{
    for (PendingSlot& slot : pendingSlots) {
        if (slot.ready.load()) ::unlink(slot.path);
    }
}

}  // namespace vorn
