#include "PosixFiles.h"
#include "Descriptor.h"
#include "UserFolders.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>

namespace velmorath {
namespace {

Error lastError(std::string_view doing, const std::string& path)
{
    std::string reason = std::strerror(errno);
    return Error{std::string(doing) + " " + path + ": " + reason};
}

std::string folderOf(const std::string& path)
{
    auto folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

// The links are followed by hand because the file at their end need not exist yet.
Result<std::string> followLinks(std::string path)
{
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        char target[PATH_MAX];
        auto length = readlink(path.c_str(), target, sizeof target);
        if (length < 0)
            return path;
        std::string next(target, static_cast<std::size_t>(length));
        path = next.starts_with('/') ? next : folderOf(path) + "/" + next;
    }
    errno = ELOOP;
    return lastError("Cannot follow", path);
}

// Best effort: some file systems cannot flush a folder, and the file is whole all the same.
void flushFolder(const std::string& folder)
{
    Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor)
        fsync(descriptor.get());
}

std::optional<Error> makeFolders(const std::string& folder)
{
    struct stat status;
    if (stat(folder.c_str(), &status) == 0)
        return {};
    auto parent = folderOf(folder);
    if (errno != ENOENT || parent == folder)
        return lastError("Cannot use the folder", folder);
    if (auto error = makeFolders(parent))
        return error;
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return lastError("Cannot make the folder", folder);
    flushFolder(parent);
    return {};
}

// A piece at a time: the disk, where it can, takes up what it has got while the next is copied. What it fails
// at it says when it is flushed.
bool writeAll(int descriptor, std::string_view bytes)
{
    constexpr std::size_t piece = 1 << 20;
    while (!bytes.empty()) {
        auto written = write(descriptor, bytes.data(), std::min(bytes.size(), piece));
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        if (!bytes.empty())
            sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
    }
    return true;
}

// A second program may have opened the same file, and may have moved it to its final place between
// our opening and our locking it. A file system without locks has to do without this.
bool ownsAlone(int descriptor, const std::string& path)
{
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return false;
    struct stat opened;
    struct stat named;
    return fstat(descriptor, &opened) == 0 && stat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino
        && opened.st_dev == named.st_dev;
}

std::string versionOf(const struct stat& status)
{
    const auto& changed = status.st_mtim;
    std::string version;
    for (const auto part : {static_cast<long long>(status.st_dev), static_cast<long long>(status.st_ino),
             static_cast<long long>(status.st_size), static_cast<long long>(changed.tv_sec),
             static_cast<long long>(changed.tv_nsec)})
        version += std::to_string(part) + " ";
    return version;
}

/// Gives the file a second name, one that copiesBeside() finds. A file system without such names has to do
/// with the file being missed for a moment.
bool keep(const std::filesystem::path& path)
{
    const std::string name = (path.parent_path() / path.stem()).string() + ".kept-";
    for (int number = 1;; ++number) {
        const std::string kept = name + std::to_string(number) + path.extension().string();
        if (link(path.c_str(), kept.c_str()) == 0)
            return true;
        if (errno != EEXIST)
            return rename(path.c_str(), kept.c_str()) == 0;
    }
}

} // namespace

std::optional<Error> PosixFiles::replaceNow(const std::string& givenPath, std::string_view bytes)
{
    auto path = followLinks(givenPath);
    if (!path)
        return path.error();
    if (auto error = makeFolders(folderOf(*path)))
        return error;
    struct stat status;
    if (stat(path->c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        return Error{"Cannot replace " + *path + ": it is not a file"};

    // The same name each time, so that a kill leaves at most one unfinished file, which the next call
    // takes over.
    auto besidePath = *path + ".new";
    Descriptor beside(
        open(besidePath.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!beside)
        return lastError("Cannot write", besidePath);
    if (!ownsAlone(beside.get(), besidePath))
        return Error{"Cannot write " + besidePath + ": another program writes it"};
    bool written = fchmod(beside.get(), S_IRUSR | S_IWUSR) == 0 && ftruncate(beside.get(), 0) == 0
        && writeAll(beside.get(), bytes) && fsync(beside.get()) == 0 && fstat(beside.get(), &status) == 0;
    if (written) {
        // What somebody else put there, and nobody here has seen, is kept.
        const auto known = knownVersion(givenPath);
        const auto found = version(givenPath);
        if (known && found && found != known)
            written = keep(*path);
        written = written && rename(besidePath.c_str(), path->c_str()) == 0;
    }
    if (!written) {
        auto error = lastError("Cannot write", *path);
        unlink(besidePath.c_str());
        return error;
    }
    m_knownVersions[givenPath] = versionOf(status);
    flushFolder(folderOf(*path));
    return {};
}

PosixFiles::PosixFiles(std::optional<std::string> documentDirectory, std::optional<std::string> defaultsFile,
    std::string resourceDirectory)
    : m_documentDirectory(std::move(documentDirectory))
    , m_defaultsFile(std::move(defaultsFile))
    , m_resourceDirectory(std::move(resourceDirectory))
{
}

PosixFiles PosixFiles::forUser(std::string resourceDirectory)
{
    auto documents = UserFolders::data();
    if (documents)
        *documents += "/Documents";
    auto defaults = UserFolders::configuration();
    if (defaults)
        *defaults += "/defaults.plist";
    return PosixFiles(std::move(documents), std::move(defaults), std::move(resourceDirectory));
}

bool PosixFiles::exists(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

Result<std::string> PosixFiles::read(const std::string& path)
{
    // Without O_NONBLOCK a pipe would make us wait for its other end.
    Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status;
    if (!file || fstat(file.get(), &status) != 0)
        return lastError("Cannot read", path);
    if (!S_ISREG(status.st_mode))
        return Error{"Cannot read " + path + ": it is not a file"};
    auto size = static_cast<std::size_t>(status.st_size);
    if (size > longestFile)
        return Error{"Cannot read " + path + ": it is too long"};
    m_knownVersions[path] = versionOf(status);

    std::string bytes(size, '\0');
    std::size_t length = 0;
    while (length < size) {
        auto count = ::read(file.get(), bytes.data() + length, size - length);
        if (count < 0 && errno != EINTR)
            return lastError("Cannot read", path);
        if (count == 0)
            break;
        length += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    bytes.resize(length);
    return bytes;
}

void PosixFiles::write(const std::string& path, std::string_view bytes, Completion completion)
{
    completion(replaceNow(path, bytes));
}

std::optional<Error> PosixFiles::setAside(const std::string& givenPath, std::string_view why)
{
    auto path = followLinks(givenPath);
    if (!path)
        return path.error();
    struct stat status;
    const auto name = *path + "." + std::string(why);
    auto aside = name;
    for (int number = 2; lstat(aside.c_str(), &status) == 0; ++number)
        aside = name + "-" + std::to_string(number);
    if (rename(path->c_str(), aside.c_str()) != 0)
        return lastError("Cannot set aside", *path);
    flushFolder(folderOf(*path));
    return {};
}

std::optional<std::string> PosixFiles::version(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? std::optional(versionOf(status)) : std::nullopt;
}

std::optional<std::string> PosixFiles::knownVersion(const std::string& path) const
{
    const auto known = m_knownVersions.find(path);
    return known == m_knownVersions.end() ? std::nullopt : std::optional(known->second);
}

std::vector<std::string> PosixFiles::copiesBeside(const std::string& path)
{
    // Those of a link, and those of the file that it leads to.
    std::set<std::string> copies;
    const auto target = followLinks(path);
    for (const std::filesystem::path file : {path, target ? *target : path}) {
        std::error_code error;
        std::filesystem::directory_iterator entry(file.parent_path(), error);
        for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            std::error_code ignored;
            if (name.starts_with(file.stem().string()) && name.ends_with(file.extension().string())
                && entry->is_regular_file(ignored)
                && !std::filesystem::equivalent(entry->path(), file, ignored))
                copies.insert(entry->path().lexically_normal().string());
        }
    }
    return {copies.begin(), copies.end()};
}

} // namespace velmorath
