#include "linux/folder_hive.h"

#include <algorithm>

#include "linux/folder_names.h"
#include "runtime/letter_case.h"

namespace quorkit::disk {
namespace {

/// The root is there also when nobody has needed its folder yet.
ErrorCode orRoot(ErrorCode code, const Hive::Path& path) {
    return code == kFileNotFound && path.empty() ? kSuccess : code;
}

}  // namespace

std::string FolderHive::folderOf(const Path& path, std::size_t depth) const {
    std::string folder = root_();
    for (const String& name : std::span(path).first(std::min(depth, path.size())))
        folder.append("/").append(folderNameOf(name));
    return folder;
}

ErrorCode FolderHive::open(const Path& path, RegistryAccess access) {
    return orRoot(openKeyFolder(folderOf(path), access == RegistryAccess::Write), path);
}

ErrorCode FolderHive::create(const Path& path) {
    constexpr int mostTries = 100;  // others may delete what is above it
    ErrorCode code = kFileNotFound;
    for (int tries = 0; code == kFileNotFound && tries < mostTries; ++tries) {
        const std::string root = root_();
        if (root.empty()) return kPathNotFound;
        code = makeFolders(root, rights_.folder);
        for (std::size_t depth = 0; code == kSuccess && depth < path.size(); ++depth)
            code = makeKeyFolder(folderOf(path, depth), path[depth], rights_);
    }
    return code;
}

ErrorCode FolderHive::value(const Path& path, const String& name, RegistryValue& value) {
    std::string text;
    if (const ErrorCode code = readKeyFile(folderOf(path), text)) return code;
    return KeyFile(std::move(text)).find(name, value) ? kSuccess : kFileNotFound;
}

ErrorCode FolderHive::values(const Path& path, std::vector<NamedValue>& values) {
    const std::string folder = folderOf(path);
    std::string text;
    ErrorCode code = readKeyFile(folder, text);
    if (code == kFileNotFound) code = orRoot(openKeyFolder(folder, false), path);
    if (code == kSuccess) KeyFile(std::move(text)).list(values);
    return code;
}

ErrorCode FolderHive::setValues(const Path& path, std::span<const NamedValue> values) {
    if (path.empty())
        if (const ErrorCode code = create(path)) return code;
    return changeKeyFile(folderOf(path), rights_, [&](KeyFile& file) {
        file.set(values);
        return kSuccess;
    });
}

ErrorCode FolderHive::deleteValue(const Path& path, const String& name) {
    // Where there is nothing to delete there is nothing to lock.
    std::string text;
    if (const ErrorCode code = readKeyFile(folderOf(path), text)) return code;
    if (!KeyFile(std::move(text)).remove(name)) return kFileNotFound;
    return changeKeyFile(folderOf(path), rights_, [&](KeyFile& file) {
        return file.remove(name) ? kSuccess : kFileNotFound;
    });
}

ErrorCode FolderHive::subKeys(const Path& path, std::vector<String>& names) {
    const std::string folder = folderOf(path);
    std::vector<KeyEntry> entries;
    if (const ErrorCode code = listKeyFolder(folder, entries)) return orRoot(code, path);
    std::ranges::sort(entries, {}, &KeyEntry::name);
    for (const KeyEntry& entry : entries)
        if (auto name = keyNameOf(folder, entry)) names.push_back(std::move(*name));
    return kSuccess;
}

ErrorCode FolderHive::deleteKey(const Path& path) {
    return removeKeyFolder(folderOf(path, path.size() - 1), path.back());
}

}  // namespace quorkit::disk
