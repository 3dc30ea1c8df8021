#include <quorkit/GQuorRegistry.h>
#include <quorkit/GQuorWindows.h>
#include <quorkit/errors.h>
#include <quorkit/ports/desktop.h>

#include <cmath>

#include "frame/error_patterns.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

constexpr Double kPointsAPixel = 0.75;
constexpr Double kTwipsAPixel = 15;
constexpr Double kTolerance = 6;   // points by which a form may stand out
constexpr Long kNotNoted = -1000;  // a left edge that means: nothing stored

/// A form or a host application.
class Form {
   public:
    explicit Form(const ObjectRef& object) : object_(object) {
        if (object == nullptr) raise(ErrorNumber::ObjectNotSet);
    }

    Variant get(const char16_t* property) { return object_->call(property, CallKind::Get); }
    Double number(const char16_t* property) { return runtime::CDbl(get(property)); }
    void set(const char16_t* property, Double value) {
        Variant argument = value;
        object_->call(property, CallKind::Let, {{&argument, 1}});
    }

   private:
    const ObjectRef& object_;
};

String keyOf(const String& path, Form& form) {
    return path + u'\\' + runtime::CStr(form.get(u"Name")) + u"_Position";
}

void center(Form& form, Form& host) {
    const auto middle = [&](const char16_t* edge, const char16_t* extent) {
        form.set(edge,
                 host.number(edge) + std::floor((host.number(extent) - form.number(extent)) / 2));
    };
    middle(u"Left", u"Width");
    middle(u"Top", u"Height");
}

void pullInto(const ScreenArea& area, Form& form) {
    const Double left = area.left * kPointsAPixel;
    const Double top = area.top * kPointsAPixel;
    const Double right = area.right * kPointsAPixel;
    const Double bottom = area.bottom * kPointsAPixel;
    if (form.number(u"Left") + kTolerance < left) form.set(u"Left", left);
    if (form.number(u"Top") + kTolerance < top) form.set(u"Top", top);
    if (form.number(u"Left") + form.number(u"Width") - kTolerance > right)
        form.set(u"Left", right - form.number(u"Width"));
    if (form.number(u"Top") + form.number(u"Height") - kTolerance > bottom)
        form.set(u"Top", bottom - form.number(u"Height"));
}

}  // namespace

void GQuorWindows::getWorkingScreenSize(Long eUnits, Out<Double> iLeft, Out<Double> iTop,
                                        Out<Double> iWidth, Out<Double> iHeight) {
    const Double factor = eUnits == eUnits_Points  ? kPointsAPixel
                          : eUnits == eUnits_Twips ? kTwipsAPixel
                                                   : 1;
    ScreenArea area;
    ports_.desktop.WorkArea(area);
    iLeft = area.left * factor;
    iTop = area.top * factor;
    iWidth = area.right * factor;
    iHeight = area.bottom * factor;
}

Long GQuorWindows::ConvertPointsToPixels(Double Points) {
    return runtime::roundToLong(Points / kPointsAPixel);
}

Double GQuorWindows::ConvertPixelsToPoints(Long Pixels) {
    return Pixels * kPointsAPixel;
}

void GQuorWindows::CenterUserFormInApplication(const ObjectRef& frm, const ObjectRef& hostApp) {
    Form form(frm);
    Form host(hostApp);
    center(form, host);
}

void GQuorWindows::SaveVBAUserFormPosition(const String& sRegPath, const ObjectRef& frm,
                                           Optional<Boolean, true> bOnlyPosition) {
    frame::resumeNext([&] {
        Form form(frm);
        const String key = keyOf(sRegPath, form);
        GQuorRegistry registry(ports_);
        const auto note = [&](const char16_t* property) {
            registry.Reg_WriteDWordValue(key, property, runtime::CStr(form.get(property)));
        };
        note(u"Left");
        note(u"Top");
        if (*bOnlyPosition) return;
        note(u"Width");
        note(u"Height");
    });
}

void GQuorWindows::LoadVBAUserFormPosition(const String& sRegPath, const ObjectRef& frm,
                                           const ObjectRef& hostApp,
                                           Optional<Boolean, true> bOnlyPosition) {
    frame::resumeNext([&] {
        ScreenArea area;
        const bool hasScreen = ports_.desktop.WorkArea(area);
        Form form(frm);
        const String key = keyOf(sRegPath, form);
        GQuorRegistry registry(ports_);
        if (!*bOnlyPosition) {
            const Long width = registry.Reg_ReadDWordValue(key, u"Width", -1);
            const Long height = registry.Reg_ReadDWordValue(key, u"Height", -1);
            if (width >= 0) {
                form.set(u"Width", width);
                form.set(u"Height", height);
            }
        }
        const Long left = registry.Reg_ReadDWordValue(key, u"Left", kNotNoted);
        const Long top = registry.Reg_ReadDWordValue(key, u"Top", kNotNoted);
        if (left <= -10) {
            CenterUserFormInApplication(frm, hostApp);
        } else {
            form.set(u"Left", left);
            form.set(u"Top", top);
        }
        if (hasScreen) pullInto(area, form);
    });
}

}  // namespace quorkit
