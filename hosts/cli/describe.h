// quorkit describe: the catalogue, written out for a person, a program, a type library or a page.
#pragma once

#include <quorkit/catalogue.h>

#include <ostream>
#include <span>
#include <string>

#include "cli/json_text.h"

namespace quorkit::cli {

/// Runs the command with the arguments behind "describe". Error 429 for an unknown class, 438 for
/// an unknown member; UsageError.
void describe(std::span<const String> arguments, std::ostream& out);

/// Error 429 when there is no such class.
const ClassInfo& classNamed(StringView name);

/// Signature, identifier and sentence, for a person.
std::string describeText();
std::string describeText(const ClassInfo& info);
std::string describeText(const MemberInfo& member);

/// The machine-readable contract, in the catalogue's order. A member's get and let are two.
using OrderedJson = nlohmann::ordered_json;
OrderedJson describeJson();
OrderedJson describeJson(const ClassInfo& info);
OrderedJson describeJson(const MemberInfo& member);

/// The reference page, and a class's or member's part of it.
std::string describeMarkdown();
std::string describeMarkdown(const ClassInfo& info);
std::string describeMarkdown(const MemberInfo& member);

/// The interface definition of the whole library, from which a type library is made.
std::string describeIdl();

}  // namespace quorkit::cli
