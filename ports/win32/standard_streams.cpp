#include "win32/standard_streams.h"

namespace quorkit::native {

StandardStreams::StandardStreams() {
    constexpr std::array<DWORD, 3> streams = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE,
                                              STD_ERROR_HANDLE};
    const HANDLE self = ::GetCurrentProcess();
    std::size_t count = 0;
    for (std::size_t i = 0; i < streams.size(); ++i) {
        const HANDLE stream = ::GetStdHandle(streams[i]);
        HANDLE copy = nullptr;
        if (stream == nullptr || stream == INVALID_HANDLE_VALUE ||
            !::DuplicateHandle(self, stream, self, &copy, 0, TRUE, DUPLICATE_SAME_ACCESS))
            continue;
        copies_[i].reset(copy);
        handles_[count++] = copy;
    }
    SIZE_T size = 0;
    ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    if (count == 0 || size == 0) return;
    room_ = std::make_unique<char[]>(size);
    auto* const list = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(room_.get());
    if (!::InitializeProcThreadAttributeList(list, 1, 0, &size)) return;
    list_ = list;
    if (::UpdateProcThreadAttribute(list, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                    count * sizeof handles_[0], nullptr, nullptr))
        return;
    ::DeleteProcThreadAttributeList(list_);
    list_ = nullptr;
}

StandardStreams::~StandardStreams() {
    if (list_ != nullptr) ::DeleteProcThreadAttributeList(list_);
}

void StandardStreams::enter(STARTUPINFOEXW& record) const {
    if (!any()) return;
    record.lpAttributeList = list_;
    record.StartupInfo.dwFlags |= STARTF_USESTDHANDLES;
    record.StartupInfo.hStdInput = copies_[0].get();
    record.StartupInfo.hStdOutput = copies_[1].get();
    record.StartupInfo.hStdError = copies_[2].get();
}

}  // namespace quorkit::native
