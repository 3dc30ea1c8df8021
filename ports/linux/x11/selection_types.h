// Under which types the programs of an X server offer a content. Source: ICCCM 2.6.2, RFC 2046,
// and what toolkits and office programs do.
#pragma once

#include <quorkit/ports/clipboard.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorkit::x11 {

/// The types under which others may have a content of a format, those that lose least first.
std::vector<std::string> typesOf(ClipboardFormat format);

/// A content as one type has it.
struct Offer {
    std::string target;  ///< what others ask for
    std::string type;    ///< what they are told that they get
    std::shared_ptr<const std::string> bytes;
};
/// All types under which others can have a content; none for bytes that the format does not allow.
/// A text is also Latin-1 where all its characters have a place in that.
std::vector<Offer> offersOf(ClipboardFormat format, std::string content);

/// A text that came as Latin-1.
std::string utf8OfLatin1(std::string_view bytes);

}  // namespace quorkit::x11
