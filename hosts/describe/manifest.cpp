#include "describe/describe.h"

// Side-by-side finds a DLL with the name of the assembly before it finds a manifest with that name,
// so the assembly must not be called as the DLL is.

namespace quorkit::describe {
namespace {

std::string identityText(const char* identity) {
    std::string text = "\"{";
    for (; *identity != 0; ++identity)
        text +=
            static_cast<char>(*identity >= 'a' && *identity <= 'f' ? *identity - 32 : *identity);
    return text + "}\"";
}

std::string attribute(std::string_view text) {
    std::string result = "\"";
    for (const char one : text) {
        switch (one) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += one;
        }
    }
    return result + '"';
}

std::string classElement(const ClassInfo& info) {
    const std::string name = std::string("quorkit.") + info.name;
    return "    <comClass clsid=" + identityText(info.identity) +
           " progid=" + attribute(name + ".1") +
           " threadingModel=\"Apartment\"\n              tlbid=" + identityText(kLibraryIdentity) +
           " description=" + attribute(info.role) + ">\n      <progid>" + name +
           "</progid>\n    </comClass>\n";
}

/// By which the system's marshaler carries calls to other apartments.
std::string interfaceElement(const ClassInfo& info) {
    return "  <comInterfaceExternalProxyStub iid=" + identityText(info.interfaceIdentity) +
           " tlbid=" + identityText(kLibraryIdentity) +
           "\n      proxyStubClsid32=\"{00020420-0000-0000-C000-000000000046}\"/>\n";
}

}  // namespace

std::string asManifest() {
    std::string text = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="quorkit.automation" version="1.0.0.0"/>
  <file name="quorkit.dll">
)";
    for (const ClassInfo& info : classes()) text += classElement(info);
    text += "    <typelib tlbid=" + identityText(kLibraryIdentity) +
            " version=\"1.0\" helpdir=\"\"/>\n  </file>\n";
    for (const ClassInfo& info : classes()) text += interfaceElement(info);
    return text + "</assembly>\n";
}

}  // namespace quorkit::describe
