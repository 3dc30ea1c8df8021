// The types under which programs of an X server offer a content. Source: ICCCM 2.6.2, RFC 2046, and
// the practice of toolkits and office programs.
#pragma once

#include <quorkit/ports/clipboard.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorkit::x11 {

/// The types of a content that other programs may offer, in the order of least loss.
std::vector<std::string> typesOf(ClipboardFormat format);

/// A content in one type.
struct Offer {
    std::string target;  ///< the type that others request
    std::string type;    ///< the type of the answer
    std::shared_ptr<const std::string> bytes;
};
/// All types in which a content is offered; none for bytes that the format does not allow. A text
/// is also offered as Latin-1 if that has all its characters.
std::vector<Offer> offersOf(ClipboardFormat format, std::string content);

/// The UTF-8 of a text in Latin-1.
std::string utf8OfLatin1(std::string_view bytes);

}  // namespace quorkit::x11
