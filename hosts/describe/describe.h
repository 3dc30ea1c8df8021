// Descriptions of the catalogue for a person, a program, a type library or a page.
#pragma once

#include <quorkit/catalogue.h>

#include <string>

#include "json/json_text.h"

namespace quorkit::describe {

/// Signature, identifier and sentence, for a person.
std::string asText();
std::string asText(const ClassInfo& info);
std::string asText(const MemberInfo& member);
std::string asText(const EnumerationInfo& enumeration);
std::string asText(const RecordInfo& record);

/// The machine-readable contract, in the catalogue's order. A property's get and let are two
/// members.
using OrderedJson = nlohmann::ordered_json;
OrderedJson asJson();
OrderedJson asJson(const ClassInfo& info);
OrderedJson asJson(const MemberInfo& member);
OrderedJson asJson(const EnumerationInfo& enumeration);
OrderedJson asJson(const RecordInfo& record);

/// The reference page, and the part of it for a class or a member.
std::string asMarkdown();
std::string asMarkdown(const ClassInfo& info);
std::string asMarkdown(const MemberInfo& member);
std::string asMarkdown(const EnumerationInfo& enumeration);
std::string asMarkdown(const RecordInfo& record);

/// The interface definition of the whole library, from which a type library is made.
std::string asIdl();

/// The manifest of the automation server, with which a program finds it without registration: the
/// assembly "quorkit.automation", to be kept beside quorkit.dll as quorkit.automation.manifest.
std::string asManifest();

/// A header for clients of the automation server in C: identities, names, identifiers, constants.
std::string asCHeader();

}  // namespace quorkit::describe
