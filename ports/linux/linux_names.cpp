#include "linux/linux_names.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

#include "base/letter_case.h"
#include "base/name_parts.h"
#include "linux/drive_table.h"
#include "linux/name_text.h"

namespace quorkit::native {
namespace {

constexpr StringView kLiteral = u"\\\\?\\";

bool isThere(const std::string& path) {
    struct stat about = {};
    return lstat(path.c_str(), &about) == 0;
}

void appendSeparator(std::string& path) {
    if (!path.empty() && path.back() != '/') path += '/';
}

/// Whether the current folder is within the folder `point`.
bool currentFolderIsIn(const std::string& point) {
    std::error_code error;
    const std::string current = std::filesystem::current_path(error);
    return !error && isWithin(current, point);
}

/// The path where the components start, "" for the current folder. Components that name a share are
/// removed from `parts`.
ErrorCode startOf(base::NameParts& parts, std::string& start) {
    switch (parts.start) {
        case base::NameParts::Here:
            break;
        case base::NameParts::Root:
            start = "/";
            break;
        case base::NameParts::Drive:
        case base::NameParts::HereOnDrive:
            start = "/";
            if (parts.drive != kRootDrive) {
                const DriveTable drives = DriveTable::ofThisSystem();
                const Drive* drive = drives.find(parts.drive);
                if (drive == nullptr) return kPathNotFound;
                start = drive->mount.point;
            }
            if (parts.start == base::NameParts::HereOnDrive && !parts.components.empty() &&
                currentFolderIsIn(start))
                start.clear();
            break;
        case base::NameParts::Network: {
            const DriveTable drives = DriveTable::ofThisSystem();
            std::size_t used = 0;
            const Drive* share = drives.findShare(parts.components, used);
            if (share == nullptr) return kPathNotFound;
            start = share->mount.point;
            parts.components.erase(parts.components.begin(),
                                   parts.components.begin() + static_cast<std::ptrdiff_t>(used));
            break;
        }
    }
    return kSuccess;
}

/// Finds the entry of `folder` that differs from `name` at most in letter case; of several the
/// first by code units.
bool findEntry(const std::string& folder, StringView name, std::string& entry) {
    constexpr std::size_t mostBytesAUnit = 3;
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(folder.empty() ? "." : folder.c_str()),
                                                     closedir);
    if (opened == nullptr) return false;
    String found;
    while (const dirent* next = readdir(opened.get())) {
        const std::string_view bytes = next->d_name;
        // The length rules out most names without a conversion.
        if (bytes.size() < name.size() || bytes.size() > name.size() * mostBytesAUnit) continue;
        String text = textOf(bytes);
        if (!base::sameText(text, name) || (!found.empty() && found <= text)) continue;
        found = std::move(text);
        entry = bytes;
    }
    return !found.empty();
}

/// Appends a component in its spelling; false when no file can have that name.
bool append(StringView component, std::string& path) {
    appendSeparator(path);
    return appendBytes(component, path);
}

/// Appends the components, each in the spelling of an existing file that differs at most in letter
/// case. All of them are possible names of files.
void appendAsThere(const std::vector<StringView>& components, std::string& path) {
    // Usually only the last component is missing.
    std::string around = path;
    for (std::size_t i = 0; i + 1 < components.size(); ++i) append(components[i], around);
    if (components.size() > 1 && isThere(around)) {
        path = around;
        return appendAsThere({components.back()}, path);
    }
    bool there = true;
    for (const StringView component : components) {
        const std::string folder = path;
        append(component, path);
        if (!there || isThere(path)) continue;
        std::string entry;
        there = errno == ENOENT && findEntry(folder, component, entry);
        if (!there) continue;
        path = folder;
        appendSeparator(path);
        path += entry;
    }
}

/// Whether a link may be followed; `link` is its status.
bool mayFollow(const std::string& path, const struct stat& link) {
    struct stat folder = {};
    if (link.st_uid == geteuid() || stat(folderOf(path).c_str(), &folder) != 0) return true;
    constexpr mode_t everyones = S_ISVTX | S_IWOTH;
    return (folder.st_mode & everyones) != everyones || folder.st_uid == link.st_uid;
}

}  // namespace

ErrorCode pathOf(const String& name, std::string& path) {
    if (name.empty() || name.find(u'\0') != String::npos) return kInvalidName;
    if (name.starts_with(kLiteral) && name.size() > kLiteral.size()) {
        if (name[kLiteral.size()] != u'/') return pathOf(name.substr(kLiteral.size()), path);
        path.clear();
        return appendBytes(StringView(name).substr(kLiteral.size()), path) ? kSuccess
                                                                           : kInvalidName;
    }
    base::NameParts parts = base::partsOf(name);
    std::string start;
    if (const ErrorCode code = startOf(parts, start)) return code;
    std::string found = start;
    for (const StringView component : parts.components)
        if (!append(component, found)) return kInvalidName;
    if (!parts.components.empty() && !isThere(found) && errno == ENOENT) {
        found = start;
        appendAsThere(parts.components, found);
    }
    if (parts.folder && !parts.components.empty()) found += '/';
    path = std::move(found);
    return kSuccess;
}

String literalNameOf(const std::string& path) {
    return String(kLiteral).append(textOf(path));
}

String nameOf(std::string_view path) {
    String name;
    if (path.starts_with('/')) {
        const DriveTable drives = DriveTable::ofThisSystem();
        const Drive& drive = drives.around(path, DriveTable::Letter::Required);
        name = {drive.letter, u':'};
        if (drive.letter != kRootDrive) path.remove_prefix(drive.mount.point.size());
        name += path.empty() ? u"/" : textOf(path);
    } else {
        name = textOf(path);
    }
    std::ranges::replace(name, u'/', u'\\');
    return name;
}

ErrorCode finalPath(std::string& path) {
    namespace fs = std::filesystem;
    constexpr int mostLinks = 40;  // the kernel follows as many
    std::error_code error;
    for (int followed = 0; followed <= mostLinks; ++followed) {
        struct stat about = {};
        if (lstat(path.c_str(), &about) != 0 || !S_ISLNK(about.st_mode)) {
            const fs::path existing = fs::canonical(path, error);
            if (!error) {
                path = existing.native();
                return kSuccess;
            }
            const fs::path folder = fs::canonical(folderOf(path), error);
            if (error) return kPathNotFound;
            path = folder / fs::path(path).filename();
            return kSuccess;
        }
        if (!mayFollow(path, about)) return kAccessDenied;
        const fs::path link = fs::read_symlink(path, error);
        if (error) return kPathNotFound;
        path = fs::path(path).parent_path() / link;
    }
    return kInvalidName;
}

std::string folderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

}  // namespace quorkit::native
