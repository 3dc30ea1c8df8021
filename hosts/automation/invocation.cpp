#include "automation/invocation.h"

#include <quorkit/dispatch.h>
#include <quorkit/errors.h>

#include <array>
#include <bitset>
#include <optional>
#include <utility>
#include <vector>

#include "automation/failure.h"
#include "automation/values.h"

namespace quorkit::automation {
namespace {

constexpr UINT kNone = static_cast<UINT>(-1);

/// What the client wants; nothing for flags that do not go together.
std::optional<CallKind> kindOf(WORD flags) {
    switch (flags) {
        case DISPATCH_METHOD:
        case DISPATCH_METHOD | DISPATCH_PROPERTYGET:
            return CallKind::Call;
        case DISPATCH_PROPERTYGET:
            return CallKind::Get;
        case DISPATCH_PROPERTYPUT:
        case DISPATCH_PROPERTYPUTREF:
        case DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF:
            return CallKind::Let;
        default:
            return {};
    }
}

/// Whether what it counts is there.
bool isWhole(const DISPPARAMS& arguments) {
    return (arguments.cArgs == 0 || arguments.rgvarg != nullptr) &&
           (arguments.cNamedArgs == 0 || arguments.rgdispidNamedArgs != nullptr) &&
           arguments.cNamedArgs <= arguments.cArgs;
}

/// The client's arguments, which come from the last to the first, the named ones in front.
class Given {
   public:
    Given(const MemberInfo& member, const DISPPARAMS& arguments) : arguments_(arguments) {
        index_.fill(kNone);
        for (UINT i = 0; i < arguments.cArgs; ++i) {
            const std::size_t position = positionOf(i, member);
            if (position >= member.parameterCount || index_[position] != kNone)
                raise(i < arguments.cNamedArgs && arguments.rgdispidNamedArgs[i] >= 0
                          ? ErrorNumber::NamedArgumentNotFound
                          : ErrorNumber::WrongNumberOfArguments);
            index_[position] = i;
        }
    }

    /// The argument for a parameter; null when it was left out.
    const VARIANT* at(std::size_t position) const {
        return index_[position] == kNone ? nullptr : &arguments_.rgvarg[index_[position]];
    }
    /// Its position as the client counts.
    UINT indexOf(std::size_t position) const { return index_[position]; }

   private:
    std::size_t positionOf(UINT i, const MemberInfo& member) const {
        if (i >= arguments_.cNamedArgs) return arguments_.cArgs - 1 - i;
        const DISPID name = arguments_.rgdispidNamedArgs[i];
        return static_cast<std::size_t>(
            name == DISPID_PROPERTYPUT ? static_cast<DISPID>(member.parameterCount) - 1 : name);
    }

    const DISPPARAMS& arguments_;
    std::array<UINT, MemberInfo::kMaxParameters> index_;
};

bool isLeftOut(const VARIANT& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

using Positions = std::bitset<MemberInfo::kMaxParameters>;

/// The arguments for the library, one for each parameter. `position` is that of the one being read.
/// A variable that only receives a result may hold anything; it is `unread` when that is nothing
/// for the library.
std::vector<Variant> read(const MemberInfo& member, const Given& given, Apartment& apartment,
                          std::size_t& position, Positions& unread) {
    std::vector<Variant> values(member.parameterCount, Variant::missing());
    for (position = 0; position < values.size(); ++position) {
        const ParameterInfo& parameter = member.parameterRow[position];
        const VARIANT* one = given.at(position);
        if (one == nullptr || isLeftOut(*one)) {
            if (!parameter.optional()) raise(ErrorNumber::ArgumentNotOptional);
        } else if (parameter.type.enumeration != nullptr && one->vt == VT_UI4) {
            // Programs whose constants were made from the type library may have no negative ones.
            values[position] = static_cast<Long>(one->ulVal);
        } else {
            if (parameter.result) checkForm(*one);
            try {
                values[position] = fromVariant(*one, apartment);
            } catch (const AutomationError&) {
                if (!parameter.result) throw;
                unread.set(position);
            }
        }
    }
    return values;
}

/// All that the member may have changed, but for `except`.
void write(const MemberInfo& member, const std::vector<Variant>& values, const Given& given,
           Apartment& apartment, std::size_t& position, const Positions& except) {
    for (position = 0; position < values.size(); ++position)
        if (const VARIANT* one = given.at(position))
            if (member.parameterRow[position].changed && !except[position])
                store(values[position], apartment, *one);
}

}  // namespace

HRESULT invoke(CatalogueObject& object, Apartment& apartment, DISPID identifier, WORD flags,
               const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* failure, UINT* argument) {
    const std::optional<CallKind> kind = kindOf(flags);
    if (!kind || !isWhole(arguments)) return E_INVALIDARG;
    const MemberInfo* member = findMember(object.info(), identifier, *kind);
    if (member == nullptr)
        return tell({static_cast<Long>(ErrorNumber::NoSuchMember), {}, {}}, failure);

    std::optional<CallError> error;
    std::optional<Given> given;
    Positions unread;
    std::size_t position = member->parameterCount;
    try {
        given.emplace(*member, arguments);
        CallResult outcome =
            call(object, {.identifier = identifier,
                          .kind = *kind,
                          .positional = read(*member, *given, apartment, position, unread),
                          .variablesMayBeOmitted = true});
        error = std::move(outcome.error);
        // A failing call leaves a variable as it was, also one that the library has not seen.
        write(*member, outcome.arguments, *given, apartment, position,
              error ? unread : Positions());
        if (!error && result != nullptr) toVariant(outcome.result, apartment, *result);
    } catch (...) {
        error = errorOf(std::current_exception(), object.className());
        if (position < member->parameterCount) error->argument = position;
    }
    if (!error) return S_OK;
    if (argument != nullptr && error->argument && given && given->at(*error->argument) != nullptr)
        *argument = given->indexOf(*error->argument);
    return tell(*error, failure);
}

}  // namespace quorkit::automation
