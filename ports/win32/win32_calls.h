// System calls, their texts, and their results.
#pragma once

#include <quorkit/ports/files.h>
#include <windows.h>

namespace quorkit::native {

inline const wchar_t* wide(const String& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline wchar_t* wide(String& text) {
    return reinterpret_cast<wchar_t*>(text.data());
}
inline String textOf(const wchar_t* text) {
    return text == nullptr ? String() : reinterpret_cast<const char16_t*>(text);
}

/// The code for the last error.
ErrorCode lastError();

inline ErrorCode resultOf(BOOL done) {
    return done ? kSuccess : lastError();
}

/// The text that `ask` writes into a buffer; empty when it fails. `ask` returns the length of the
/// text, or the size of the buffer that it needs.
template <class Ask>
String askForText(Ask ask) {
    String buffer(MAX_PATH, u'\0');
    for (;;) {
        const DWORD length = ask(wide(buffer), static_cast<DWORD>(buffer.size()));
        const bool fits = length < buffer.size();
        buffer.resize(length);
        if (fits) return buffer;
    }
}

}  // namespace quorkit::native
