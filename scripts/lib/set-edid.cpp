// set-edid OUTPUT NAME SERIAL [FLAW]: gives an output of a dummy X server the EDID of a display.
// With a flaw it is one that cables and adapters make of it: "missing", "truncated", "checksum" or
// "noise".

#include <xcb/randr.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> using Reply = std::unique_ptr<T, Free>;

/// The 128 bytes of an EDID 1.4 block without timings; the name has at most 13 characters.
std::vector<std::uint8_t> edid(const std::string &name, std::uint32_t serial)
{
    std::vector<std::uint8_t> block{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
    block.resize(128);
    block[8] = 0x41; // "PNR", five bits a letter
    block[9] = 0xD2;
    block[10] = 0x24; // model
    for (unsigned i = 0; i < 4; ++i)
        block[12 + i] = static_cast<std::uint8_t>(serial >> (8 * i));
    block[17] = 34; // year, from 1990
    block[18] = 1;
    block[19] = 4;
    block[20] = 0xA5; // digital
    block[23] = 120;  // gamma 2.2
    constexpr std::array<std::uint8_t, 10> sRGB{0xEE, 0x91, 0xA3, 0x54, 0x4C,
                                                0x99, 0x26, 0x0F, 0x50, 0x54};
    std::memcpy(&block[25], sRGB.data(), sRGB.size());
    block[93] = 0xFC; // the third descriptor is the name
    std::string text = name.substr(0, 13);
    if (text.size() < 13)
        text += '\n';
    text.resize(13, ' ');
    std::memcpy(&block[95], text.data(), text.size());
    std::uint8_t sum = 0;
    for (const std::uint8_t byte : block)
        sum = static_cast<std::uint8_t>(sum + byte);
    block[127] = static_cast<std::uint8_t>(-sum);
    return block;
}

void spoil(std::vector<std::uint8_t> &block, const std::string &flaw)
{
    if (flaw == "truncated")
        block.resize(100);
    else if (flaw == "checksum")
        block[127] ^= 1;
    else if (flaw == "noise")
        block.assign(65'000, 0xA7);
}

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_randr_output_t findOutput(xcb_connection_t *connection, const std::string &name)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const Reply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(
            connection, xcb_randr_get_screen_resources_current(connection, root), nullptr));
    if (!resources)
        return XCB_NONE;
    const auto *outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    for (int i = 0; i < resources->num_outputs; ++i) {
        const Reply<xcb_randr_get_output_info_reply_t> info(xcb_randr_get_output_info_reply(
            connection, xcb_randr_get_output_info(connection, outputs[i], XCB_CURRENT_TIME),
            nullptr));
        const auto *text =
            reinterpret_cast<const char *>(xcb_randr_get_output_info_name(info.get()));
        const auto length =
            static_cast<std::size_t>(xcb_randr_get_output_info_name_length(info.get()));
        if (std::string(text, length) == name)
            return outputs[i];
    }
    return XCB_NONE;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: set-edid OUTPUT NAME SERIAL [FLAW]\n");
        return 2;
    }
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const xcb_randr_output_t output =
        xcb_connection_has_error(connection) ? XCB_NONE : findOutput(connection, argv[1]);
    if (output == XCB_NONE) {
        std::fprintf(stderr, "set-edid: no output %s\n", argv[1]);
        return 1;
    }
    auto block = edid(argv[2], static_cast<std::uint32_t>(std::strtoul(argv[3], nullptr, 10)));
    const std::string flaw = argc == 5 ? argv[4] : "";
    spoil(block, flaw);
    const xcb_atom_t property = atom(connection, "EDID");
    if (flaw == "missing")
        xcb_randr_delete_output_property(connection, output, property);
    else
        xcb_randr_change_output_property(connection, output, property, XCB_ATOM_INTEGER, 8,
                                         XCB_PROP_MODE_REPLACE,
                                         static_cast<std::uint32_t>(block.size()), block.data());
    atom(connection, "EDID"); // a round trip: the property is set when this returns
    xcb_disconnect(connection);
    return 0;
}
