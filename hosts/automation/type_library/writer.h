// The catalogue as a type library.
#pragma once

#include <oaidl.h>
#include <quorkit/catalogue.h>

#include <filesystem>
#include <map>
#include <string>

#include "automation/com.h"

namespace quorkit::automation {

/// Writes a type library with the means of the system that runs, and everything in the catalogue
/// into it. Whatever fails throws std::runtime_error.
class TypeLibraryWriter {
   public:
    /// `system` is SYS_WIN32 or SYS_WIN64; it need not be that of this program.
    TypeLibraryWriter(SYSKIND system, const std::filesystem::path& path);
    /// Writes the file.
    void save();

   private:
    Ref<ICreateTypeInfo> add(const std::string& name, TYPEKIND kind, const char* sentence);
    void add(const EnumerationInfo& enumeration);
    void add(const RecordInfo& record);
    void addInterface(const ClassInfo& info);
    void addClass(const ClassInfo& info);
    void addMember(ICreateTypeInfo& to, UINT index, const MemberInfo& member);
    HREFTYPE reference(ICreateTypeInfo& from, const std::string& name);

    std::filesystem::path path_;
    Ref<ICreateTypeLib2> library_;
    /// What has been added, by name.
    std::map<std::string, Ref<ITypeInfo>> types_;
    Ref<ITypeInfo> dispatch_;
};

}  // namespace quorkit::automation
