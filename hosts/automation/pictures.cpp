#include "automation/pictures.h"

#include <ocidl.h>
#include <olectl.h>
#include <quorkit/errors.h>

#include <memory>
#include <new>
#include <string>

namespace quorkit::automation {
namespace {

struct Unlock {
    void operator()(void* memory) const { GlobalUnlock(GlobalHandle(memory)); }
};

Ref<IStream> streamOf(const std::string& bytes) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (memory == nullptr) throw std::bad_alloc();
    {
        const std::unique_ptr<void, Unlock> place(GlobalLock(memory));
        bytes.copy(static_cast<char*>(place.get()), bytes.size());
    }
    Ref<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(memory, TRUE, stream.receive()))) {
        GlobalFree(memory);
        throw std::bad_alloc();
    }
    return stream;
}

std::string bytesOf(IStream* stream) {
    STATSTG state = {};
    HGLOBAL memory = nullptr;
    if (FAILED(stream->Stat(&state, STATFLAG_NONAME)) ||
        FAILED(GetHGlobalFromStream(stream, &memory)))
        raise(ErrorNumber::InvalidPicture);
    const std::unique_ptr<void, Unlock> place(GlobalLock(memory));
    if (place == nullptr) return {};
    return std::string(static_cast<const char*>(place.get()),
                       static_cast<std::size_t>(state.cbSize.QuadPart));
}

}  // namespace

Ref<IDispatch> systemPicture(const Picture& picture) {
    const Ref<IStream> stream = streamOf(picture.file());
    void* made = nullptr;
    if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(picture.file().size()), FALSE,
                              IID_IPictureDisp, &made)))
        return {};
    return Ref<IDispatch>(static_cast<IDispatch*>(made));
}

PictureRef pictureOf(IUnknown* object) {
    const auto picture = Ref<IPicture>::from(object);
    if (!picture) return {};
    Ref<IStream> stream;
    LONG size = 0;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()))) throw std::bad_alloc();
    if (FAILED(picture->SaveAsFile(stream.get(), TRUE, &size))) raise(ErrorNumber::InvalidPicture);
    return std::make_shared<Picture>(bytesOf(stream.get()));
}

}  // namespace quorkit::automation
