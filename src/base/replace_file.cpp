// SPDX-License-Identifier: MIT
// How the user's file is replaced. Whoever owns the folder can change its names at any moment, so
// nothing is done to a name that can be done to the opened file or folder.
#include "base/posix_file.h"

#include "base/failure_kind.h"

#include <array>
#include <cstdlib>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/random.h>
#include <unistd.h>

namespace fennel {

namespace {

constexpr mode_t newFileMode = 0666; // less the user's umask, as every new file
constexpr std::string_view besideStart = ".fennel-gfx.";
constexpr std::string_view besideEnd = ".new";

bool isSame(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// The folder that receives the file, and the file's name in it.
struct Place {
    Descriptor folder;
    std::string name;
};

// What stands under a name, no link followed; nothing if there is nothing.
std::optional<struct stat> factsOf(const Place& place, const std::string& name)
{
    struct stat facts {};
    if (::fstatat(place.folder.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return facts;
}

// In a folder of somebody else's a link may be a trap: it is followed only to files of whoever made
// it.
bool isTrap(const std::string& path, const std::string& real)
{
    struct stat link {};
    struct stat target {};
    if (::lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode) || link.st_uid == ::geteuid() ||
        link.st_uid == 0)
        return false;
    return ::lstat(real.c_str(), &target) != 0 || target.st_uid != link.st_uid;
}

Result<Place> placeOf(const std::string& path)
{
    std::error_code error;
    const auto canonical = std::filesystem::weakly_canonical(path, error);
    const std::string real = error ? path : canonical.string();
    if (isTrap(path, real))
        return systemFailure("replace", path, EPERM);
    const std::size_t slash = real.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : real.substr(0, slash + 1);
    Place place{openFile(folder, O_RDONLY | O_DIRECTORY), real.substr(slash + 1)};
    if (!place.folder.valid())
        return systemFailure("write", path, errno);
    return place;
}

std::string randomName()
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::array<unsigned char, 8> bytes{};
    if (::getrandom(bytes.data(), bytes.size(), 0) != std::ssize(bytes))
        bytes[0] = static_cast<unsigned char>(::getpid()); // O_EXCL still holds
    std::string name(besideStart);
    for (const unsigned char byte : bytes) {
        name += digits[byte >> 4U];
        name += digits[byte & 15U];
    }
    return name.append(besideEnd);
}

// A save that was killed leaves its file. Whoever still writes one holds its lock.
void removeStale(const Place& place)
{
    Descriptor again = openFile(".", O_RDONLY | O_DIRECTORY, place.folder.get());
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::fdopendir(again.get()), &::closedir);
    if (!listing)
        return;
    (void)again.release(); // the listing closes it
    while (const dirent* entry = ::readdir(listing.get())) {
        const std::string name = entry->d_name;
        if (!name.starts_with(besideStart) || !name.ends_with(besideEnd))
            continue;
        const Descriptor file =
            openFile(name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW, place.folder.get());
        struct stat facts {};
        if (file.valid() && ::fstat(file.get(), &facts) == 0 && S_ISREG(facts.st_mode) &&
            ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
            (void)::unlinkat(place.folder.get(), name.c_str(), 0);
    }
}

// The new file, under a name that nobody can foresee, until it has taken the old one's place.
// Beside it, since only a rename within one file system is a single step.
class Beside {
public:
    Beside(const Place& place, bool replaces)
        : m_place(place), m_name(randomName()),
          m_file(openFile(m_name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, place.folder.get(),
                          replaces ? 0600 : newFileMode))
    {
        if (m_file.valid())
            (void)::flock(m_file.get(), LOCK_EX | LOCK_NB);
    }
    // Only what was made here goes: the name may have come to mean another file.
    ~Beside()
    {
        if (!m_done && isThere())
            (void)::unlinkat(m_place.folder.get(), m_name.c_str(), 0);
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    // -1 if it cannot be made.
    [[nodiscard]] int file() const { return m_file.get(); }
    // Down to the disk: after a power cut the name must not lead to nothing.
    bool sync() { return ::fsync(m_file.get()) == 0; }
    // The rights of the file before. An ordinary user cannot give files away (EPERM): the file then
    // belongs to whoever saves it. The owner first, as a change of it takes rights away.
    bool takeOver(const struct stat& old)
    {
        constexpr mode_t rights = 0777;
        struct stat own {};
        if (::fstat(m_file.get(), &own) != 0)
            return false;
        if ((own.st_uid != old.st_uid || own.st_gid != old.st_gid) &&
            ::fchown(m_file.get(), old.st_uid, old.st_gid) != 0 && errno != EPERM)
            return false;
        return (own.st_mode & rights) == (old.st_mode & rights) ||
               ::fchmod(m_file.get(), old.st_mode & rights) == 0;
    }
    bool rename()
    {
        m_done = ::renameat(m_place.folder.get(), m_name.c_str(), m_place.folder.get(),
                            m_place.name.c_str()) == 0;
        // Not told if it fails: the new file is in place already.
        if (m_done)
            (void)::fsync(m_place.folder.get());
        return m_done;
    }

    [[nodiscard]] bool isThere() const
    {
        struct stat own {};
        const auto named = factsOf(m_place, m_name);
        return m_file.valid() && named && ::fstat(m_file.get(), &own) == 0 && isSame(own, *named);
    }

private:
    const Place& m_place;
    std::string m_name;
    Descriptor m_file;
    bool m_done = false;
};

// A rename needs rights on the folder only: it would replace a write-protected file without asking.
int whyNotReplaceable(const Place& place, const struct stat& old)
{
    if (S_ISDIR(old.st_mode))
        return EISDIR;
    if (!S_ISREG(old.st_mode))
        return EINVAL;
    return ::faccessat(place.folder.get(), place.name.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

} // namespace

Result<void> replaceWhole(const std::string& path, std::span<const std::uint8_t> bytes)
{
    return replaceWhole(path, [&](int file) {
        return writeAll(file, bytes) ? Result<void>() : systemFailure("write", path, errno);
    });
}

Result<void> replaceWhole(const std::string& path, const WriteInto& write)
{
    const Result<Place> place = placeOf(path);
    if (!place)
        return place.failure();
    const auto old = factsOf(*place, place->name);
    if (const int error = old ? whyNotReplaceable(*place, *old) : 0; error != 0)
        return systemFailure("write", path, error);
    removeStale(*place);
    Beside beside(*place, old.has_value());
    if (beside.file() < 0)
        return systemFailure("write", path, errno);
    if (Result<void> written = write(beside.file()); !written)
        return written;
    if (!beside.sync())
        return systemFailure("write", path, errno);
    if (old && !beside.takeOver(*old))
        return systemFailure("set the rights of", path, errno);
    // Whatever came to the names meanwhile is not what was looked at.
    const auto now = factsOf(*place, place->name);
    if (old.has_value() != now.has_value() || (old && !isSame(*old, *now)) || !beside.isThere())
        return Failure{FailureKind::Io,
                       "Cannot replace " + path + ": another program changes its folder."};
    return beside.rename() ? Result<void>() : systemFailure("replace", path, errno);
}

void removeUnfinished(const std::string& path)
{
    if (const Result<Place> place = placeOf(path))
        removeStale(*place);
}

} // namespace fennel
