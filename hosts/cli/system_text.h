// Texts of Windows as UTF-8.
#pragma once

#include <quorkit/utf8.h>
#include <windows.h>

#include <cstdio>
#include <string>

namespace quorkit::cli {

inline String textOf(const std::wstring& text) {
    return {text.begin(), text.end()};
}
inline std::wstring wideOf(const String& text) {
    return {text.begin(), text.end()};
}

/// The system's sentence for a result, and its number: "Access denied. (0x80070005)".
inline std::string messageOf(HRESULT result) {
    wchar_t text[512] = {};
    DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(result), 0, text, 512, nullptr);
    while (length > 0 && text[length - 1] == L' ') --length;
    char number[16] = {};
    std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
    const std::string sentence = toUtf8(textOf(std::wstring(text, length)));
    return sentence.empty() ? std::string("error ") + number : sentence + " (" + number + ')';
}

/// The full path of this program.
inline std::wstring programPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

}  // namespace quorkit::cli
