#include "linux/server_keys.h"
#include "linux/x11/x11_connection.h"

namespace quorkit::native {
namespace {

using namespace x11;

/// The key symbols first ... last (keysymdef.h of X11) correspond to the virtual keys from `key`
/// on.
struct Keys {
    xcb_keysym_t first;
    xcb_keysym_t last;
    int key;
};
constexpr Keys kKeys[] = {
    {0x20, 0x20, 32},      {'0', '9', '0'},      {'a', 'z', 'A'},       {0xFE03, 0xFE03, 165},
    {0xFF08, 0xFF09, 8},   {0xFF0D, 0xFF0D, 13}, {0xFF13, 0xFF13, 19},  {0xFF14, 0xFF14, 145},
    {0xFF1B, 0xFF1B, 27},  {0xFF50, 0xFF50, 36}, {0xFF51, 0xFF54, 37},  {0xFF55, 0xFF56, 33},
    {0xFF57, 0xFF57, 35},  {0xFF61, 0xFF61, 44}, {0xFF63, 0xFF63, 45},  {0xFF67, 0xFF67, 93},
    {0xFF7F, 0xFF7F, 144}, {0xFF8D, 0xFF8D, 13}, {0xFFAA, 0xFFAF, 106}, {0xFFBE, 0xFFD5, 112},
    {0xFFE1, 0xFFE4, 160}, {0xFFE5, 0xFFE5, 20}, {0xFFE9, 0xFFEA, 164}, {0xFFEB, 0xFFEC, 91},
    {0xFFFF, 0xFFFF, 46},
};

/// 0 for a symbol without a virtual key.
int keyOf(xcb_keysym_t symbol) {
    for (const Keys& keys : kKeys)
        if (symbol >= keys.first && symbol <= keys.last)
            return keys.key + static_cast<int>(symbol - keys.first);
    return 0;
}

/// A virtual key for two keys, the left and the right one.
struct EitherKey {
    std::size_t both;
    std::size_t left;
};
constexpr EitherKey kEither[] = {{16, 160}, {17, 162}, {18, 164}};

/// A light, and the toggle key that it shows; usually the server has them in this order.
struct Light {
    std::uint32_t mask;
    std::size_t key;
};
constexpr Light kLights[] = {{1, 20}, {2, 144}, {4, 145}};

}  // namespace

bool askServerForKeys(KeyStates& states) {
    const Connection::Lease connection = Connection::borrow();
    if (connection == nullptr) return false;
    const xcb_setup_t& setup = *xcb_get_setup(connection->get());
    const auto down = xcb_query_keymap(connection->get());
    const auto lights = xcb_get_keyboard_control(connection->get());
    const auto symbols = xcb_get_keyboard_mapping(
        connection->get(), setup.min_keycode,
        static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1));
    const auto pressed = replyTo(*connection, down, xcb_query_keymap_reply);
    const auto lit = replyTo(*connection, lights, xcb_get_keyboard_control_reply);
    const auto mapping = replyTo(*connection, symbols, xcb_get_keyboard_mapping_reply);
    if (!pressed || !lit || !mapping || mapping->keysyms_per_keycode == 0) return false;

    states = {};
    const xcb_keysym_t* const all = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (std::size_t code = setup.min_keycode; code <= setup.max_keycode; ++code) {
        if ((pressed->keys[code / 8] >> code % 8 & 1) == 0) continue;
        const int key = keyOf(all[(code - setup.min_keycode) * mapping->keysyms_per_keycode]);
        if (key != 0) states[static_cast<std::size_t>(key)] = kKeyDown;
    }
    for (const EitherKey& one : kEither) states[one.both] = states[one.left] | states[one.left + 1];
    for (const Light& light : kLights)
        if ((lit->led_mask & light.mask) != 0) states[light.key] |= kKeyOn;
    return true;
}

}  // namespace quorkit::native
