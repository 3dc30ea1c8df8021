// Owning the clipboard where its content is had from a program that runs: what the program
// quorkit-clipboard does for this library. Windows keeps the content itself.
#pragma once

#include <quorkit/values/clipboard_format.h>

#include <functional>
#include <string>

namespace quorkit::ports {

/// What that program answers once it owns the clipboard.
inline constexpr char kOwnsClipboard = '+';

/// Takes the clipboard, calls `taken`, and when that answers true gives a copy to the clipboard
/// manager, if one runs, and the content to everybody who asks, until the clipboard is another's
/// and what was on its way has arrived, or the display has gone. Answers whether it had taken it;
/// not without a display, on Windows, and with bytes that the format does not allow.
bool ownClipboard(ClipboardFormat format, std::string content, const std::function<bool()>& taken);

}  // namespace quorkit::ports
