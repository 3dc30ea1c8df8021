#include <quorkit/GQuorFile.h>
#include <quorkit/ports/host.h>

#include <algorithm>

#include "runtime/trim.h"

namespace quorkit {
namespace {

/// Takes the text up to the next delimiter, and the delimiter, off `rest`.
StringView nextOf(StringView& rest, char16_t delimiter) {
    const StringView field = rest.substr(0, rest.find(delimiter));
    rest.remove_prefix(std::min(rest.size(), field.size() + 1));
    return field;
}

std::vector<FileFilter> filtersOf(StringView text) {
    std::vector<FileFilter> filters;
    while (!text.empty()) {
        const StringView name = nextOf(text, u'|');
        const StringView patterns = nextOf(text, u'|');
        FileFilter filter;
        for (StringView rest = patterns; !rest.empty();) {
            const StringView pattern = runtime::Trim(nextOf(rest, u';'));
            if (!pattern.empty()) filter.patterns.emplace_back(pattern);
        }
        if (filter.patterns.empty()) filter.patterns.emplace_back(u"*");
        filter.name = name.empty() ? patterns : name;
        if (!filter.name.empty()) filters.push_back(std::move(filter));
    }
    return filters;
}

FileDialog dialogOf(const String& title, const String& filter, const String& folder,
                    const String& fileName) {
    FileDialog dialog;
    dialog.title = title;
    dialog.folder = folder;
    dialog.fileName = fileName;
    dialog.filters = filtersOf(filter);
    return dialog;
}

}  // namespace

String GQuorFile::BrowseForFolder(const Optional<String>& sTitle,
                                  const Optional<String>& sStartFolder,
                                  const Optional<eBrowserInfoFlags, BIF_RETURNONLYFSDIRS>& Flags) {
    FileDialog dialog = dialogOf(sTitle, {}, sStartFolder, {});
    dialog.browseFlags = static_cast<std::uint32_t>(*Flags);
    String name;
    return ports_.host.SHBrowseForFolderA(dialog, name) ? name : String();
}

String GQuorFile::ShowOpenDialog(const Optional<String>& sTitle, const Optional<String>& sFilter,
                                 const Optional<String>& sStartFolder,
                                 const Optional<String>& sFileName) {
    String name;
    const FileDialog dialog = dialogOf(sTitle, sFilter, sStartFolder, sFileName);
    return ports_.host.GetOpenFileNameA(dialog, name) ? name : String();
}

String GQuorFile::ShowSaveDialog(const Optional<String>& sTitle, const Optional<String>& sFilter,
                                 const Optional<String>& sStartFolder,
                                 const Optional<String>& sFileName,
                                 const Optional<String>& sDefaultExt) {
    String extension = sDefaultExt;
    if (!extension.empty() && !extension.starts_with(u'.')) extension = u"." + extension;
    FileDialog dialog = dialogOf(sTitle, sFilter, sStartFolder, sFileName);
    for (int shown = 0; shown < 2; ++shown) {
        String name;
        if (!ports_.host.GetSaveFileNameA(dialog, name)) return {};
        if (extension.empty() || !ExtractFileExt(name).empty()) return name;
        name += extension;
        if (!FileExists(name)) return name;
        // The user was not asked yet whether a file of this name may be overwritten.
        dialog.folder = ExtractPath(name);
        dialog.fileName = ExtractFileName(name);
    }
    return {};
}

}  // namespace quorkit
