#include <quorkit/GQuorFile.h>
#include <quorkit/ports/host.h>

#include <limits>
#include <unordered_map>
#include <vector>

#include "base/letter_case.h"
#include "file/file_filter.h"
#include "file/folder_walk.h"
#include "file/search.h"
#include "frame/error_patterns.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

constexpr Long kFailed = -1;

/// Runs the body. On a failure it tells the user and returns -1.
template <class Body>
Long onErrorTell(Host& host, Body&& body) {
    try {
        return frame::untrapped(std::forward<Body>(body));
    } catch (const AutomationError& error) {
        const std::string_view text = error.what();
        host.MessageBoxA(String(text.begin(), text.end()), runtime::CStr(error.number()),
                         kPlainMessage);
        return kFailed;
    }
}

/// Turns an empty name into the root of the current drive.
String withBackslash(const String& folder) {
    return folder.ends_with(u'\\') ? folder : folder + u'\\';
}

bool isFolder(const FindData& entry) {
    return (entry.attributes & kDirectory) != 0;
}

void append(std::vector<String>& names, String name) {
    if (names.size() == std::numeric_limits<Long>::max()) raise(ErrorNumber::Overflow);
    names.push_back(std::move(name));
}

Long countOf(const std::vector<String>& names) {
    return static_cast<Long>(names.size());
}

/// A caller's list of these names; a single empty text when there are none.
Array<String> listOf(std::vector<String> names) {
    if (names.empty()) names.emplace_back();
    return Array<String>(std::move(names));
}

/// The names taken out of a caller's list. Error 9 unless it is a list counted from 0.
std::vector<String> takenFrom(Array<String>& list) {
    if (list.dimensions() > 1) raise(ErrorNumber::SubscriptOutOfRange);
    if (list.elements().empty()) return {};
    if (list.lower() != 0) raise(ErrorNumber::SubscriptOutOfRange);
    if (list.elements().size() == 1 && list.elements()[0].empty()) return {};
    return std::move(list.elements());
}

/// The work of GetFilesFromDirectory3 in each folder.
class FolderFiles {
   public:
    FolderFiles(Folders& folders, const String& filter, bool withFolder)
        : folders_(folders), filter_(filter), pattern_(filter), withFolder_(withFolder) {}

    /// Adds the files of the current folder to `names`, and with `descend` schedules the folders in
    /// it.
    void addTo(std::vector<String>& names, file::FolderWalk& walk, bool descend) const {
        const String prefix = withFolder_ ? walk.folder() : String();
        const bool elsewhere = filter_.find_first_of(u"\\/") != String::npos;
        if (elsewhere) {
            file::NameSearch search(folders_, walk.folder() + filter_, FindDetail::Names);
            for (FindData entry; search.next(entry);)
                if (!isFolder(entry)) append(names, prefix + entry.name);
            if (!descend) return;
        }
        // One listing gives both the files and the folders.
        file::FolderEntries entries(folders_, walk.folder(), FindDetail::Names);
        for (FindData entry; entries.next(entry);) {
            const bool folder = isFolder(entry);
            if (folder && descend && !file::isSelfOrParent(entry.name)) walk.descendTo(entry);
            if (!folder && !elsewhere && pattern_.matches(entry.name))
                append(names, prefix + entry.name);
        }
    }

   private:
    Folders& folders_;
    String filter_;
    file::Wildcard pattern_;
    bool withFolder_;
};

}  // namespace

Long GQuorFile::getFilesFromDirectoryEx(const String& sDirName, Out<Array<String>> saFileList,
                                        const Optional<String, Text(u"*.*")>& sFilter,
                                        Optional<Boolean> bIncludeDirName,
                                        const Optional<Variant>& FileDateCompare1,
                                        const Optional<Variant>& FileDateCompare2,
                                        const Optional<String>& FileAttrCompare) {
    std::vector<String> names;
    bool begun = false;
    const Long result = frame::onErrorReturn(kFailed, [&] {
        const file::DateFilter dates(*FileDateCompare1, *FileDateCompare2, ports_);
        const file::AttributeFilter attributes(*FileAttrCompare);
        begun = true;
        const String folder = withBackslash(sDirName);
        const String prefix = *bIncludeDirName ? folder : String();
        file::NameSearch search(ports_.folders, folder + *sFilter,
                                !attributes.takesAll() ? FindDetail::Attributes
                                : !dates.takesAll()    ? FindDetail::Times
                                                       : FindDetail::Names);
        for (FindData entry; search.next(entry);)
            if (!isFolder(entry) && attributes.takes(entry.attributes) &&
                dates.takes(entry.lastWrite))
                append(names, prefix + entry.name);
        return countOf(names);
    });
    if (begun) saFileList = listOf(std::move(names));
    return result;
}

Long GQuorFile::GetFilesFromDirectory3(const String& sDirName, const String& sFilter,
                                       Boolean bIncludeDirName, Boolean bRecursive,
                                       Array<String>& saFileList) {
    std::vector<String> names;
    bool begun = false;
    const Long result = onErrorTell(ports_.host, [&] {
        // `sFilter` and the folder may refer to elements of the list.
        const FolderFiles files(ports_.folders, sFilter, bIncludeDirName);
        file::FolderWalk walk(ports_.files, withBackslash(sDirName));
        names = takenFrom(saFileList);
        begun = true;
        while (walk.next()) files.addTo(names, walk, bRecursive);
        return countOf(names);
    });
    if (begun) saFileList = listOf(std::move(names));
    return result;
}

Long GQuorFile::GetAllSubDirectories(const Variant& sDirName, Out<Array<String>> saDirList) {
    std::vector<String> names;
    const Long result = onErrorTell(ports_.host, [&] {
        const String folder = withBackslash(runtime::CStr(sDirName));
        file::FolderEntries entries(ports_.folders, folder, FindDetail::Names);
        for (FindData entry; entries.next(entry);)
            if (isFolder(entry) && !file::isSelfOrParent(entry.name))
                append(names, folder + entry.name);
        return countOf(names);
    });
    saDirList = listOf(std::move(names));
    return result;
}

Long GQuorFile::getAllFileExtensionsFromDirectory(const String& sPath,
                                                  Array<String>& saFileExtList) {
    struct Row {
        String extension;
        Long files = 0;
    };
    Array<String> names;
    if (GetFilesFromDirectory3(sPath, u"*.*", false, false, names) < 1) return 0;
    const bool fits = saFileExtList.elements().empty() ||
                      (saFileExtList.dimensions() == 2 && saFileExtList.bounds(1) == Bounds{0, 2} &&
                       saFileExtList.lower(2) == 0);
    if (!fits) raise(ErrorNumber::SubscriptOutOfRange);

    std::vector<Row> rows;
    std::unordered_map<String, std::size_t> rowOf;
    for (const String& name : names.elements()) {
        String extension = base::toLower(ExtractFileExt(name));
        const auto [found, added] = rowOf.try_emplace(extension, rows.size());
        if (added) rows.push_back({std::move(extension)});
        ++rows[found->second].files;
    }

    Array<String> table({0, 2}, {0, static_cast<Long>(rows.size())});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        table.elements()[2 * i] = std::move(rows[i].extension);
        table.elements()[2 * i + 1] = runtime::CStr(rows[i].files);
    }
    saFileExtList = std::move(table);
    return static_cast<Long>(rows.size());
}

}  // namespace quorkit
