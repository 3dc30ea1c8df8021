// Pictures as the system has them.
#pragma once

#include <oaidl.h>
#include <quorkit/picture.h>

#include "automation/com.h"

namespace quorkit::automation {

/// The system's picture object for a picture; null when the system cannot read its kind.
Ref<IDispatch> systemPicture(const Picture& picture);

/// A picture from a client's picture object; null when the object is none. Error 481 when it cannot
/// be had as a file.
PictureRef pictureOf(IUnknown* object);

}  // namespace quorkit::automation
