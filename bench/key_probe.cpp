#include "bench/key_probe.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>

#include <poll.h>
#include <xcb/xtest.h>

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr std::uint8_t returnKey = 36;
constexpr std::uint8_t spaceKey = 65;
constexpr int wordLength = 6;
constexpr int maxTries = 200;
constexpr int lineWidth = 500;
constexpr int lineHeight = 40;  // more than one line, less than two
constexpr int watchedWidth = 6; // narrower than any glyph that is typed
constexpr auto patience = 10s;
constexpr auto holdTime = 5ms;
constexpr auto quietTime = 150ms; // much more than any program needs, less than the caret's blink

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
Reply<T> reply(T* answer) {
    if (answer == nullptr)
        throw std::runtime_error("the display does not answer");
    return {answer, &std::free};
}

int columnsThat(const Picture& picture, auto hold) {
    int count = 0;
    for (int x = picture.area.left; x < picture.area.right; ++x)
        count += hold(x) ? 1 : 0;
    return count;
}

bool hasInk(const Picture& picture, int x, std::uint32_t ground) {
    for (int y = picture.area.top; y < picture.area.bottom; ++y)
        if (picture.at(x, y) != ground)
            return true;
    return false;
}

// The caret is one column wide, and blinks; a glyph is wider.
bool showsGlyph(const Picture& picture, std::uint32_t ground) {
    return columnsThat(picture, [&](int x) { return hasInk(picture, x, ground); }) > 1;
}

Area differenceOf(const Picture& before, const Picture& after) {
    const Area& all = before.area;
    Area found = {all.right, all.bottom, all.left, all.top};
    for (int y = all.top; y < all.bottom; ++y)
        for (int x = all.left; x < all.right; ++x)
            if (before.at(x, y) != after.at(x, y))
                found = {std::min(found.left, x), std::min(found.top, y),
                         std::max(found.right, x + 1), std::max(found.bottom, y + 1)};
    return found;
}

} // namespace

std::uint32_t Picture::at(int x, int y) const {
    const int row = y - area.top;
    return pixels[static_cast<std::size_t>(row * (area.right - area.left) + x - area.left)];
}

KeyProbe::KeyProbe()
    : connection_(xcb_connect(nullptr, nullptr), &xcb_disconnect),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data) {
    xcb_connection_t* display = connection_.get();
    const auto* damage = xcb_get_extension_data(display, &xcb_damage_id);
    if (damage == nullptr || !damage->present)
        throw std::runtime_error("the display does not tell of changed pixels");
    damageEvent_ = static_cast<std::uint8_t>(damage->first_event + XCB_DAMAGE_NOTIFY);
    reply(
        xcb_damage_query_version_reply(display, xcb_damage_query_version(display, 1, 1), nullptr));
    xcb_damage_create(display, xcb_generate_id(display), screen_->root,
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
}

KeyProbe::Clock::duration KeyProbe::strike(std::uint8_t keycode) {
    const Picture line = picture(line_);
    const std::uint32_t ground = line.at(line_.right - 1, line_.top);
    int caret = line_.right - 1;
    while (caret > line_.left && !hasInk(line, caret, ground))
        --caret;
    const Area watched = {caret + 1, line_.top, caret + 1 + watchedWidth, line_.bottom};
    while (waitForDamage(Clock::now())) // of the strokes before
        continue;

    const auto start = Clock::now();
    key(keycode, true);
    waitFor(
        watched, [&](const Picture& seen) { return showsGlyph(seen, ground); }, "the key's glyph");
    const auto spent = Clock::now() - start;
    std::this_thread::sleep_for(holdTime);
    key(keycode, false);
    return spent;
}

void KeyProbe::beginParagraph(std::uint8_t keycode, int length) {
    typeUnseen(returnKey);
    typeWords(keycode, length);
    for (int tries = 0; tries < maxTries; ++tries) {
        const Area drawn = drawnBy(keycode);
        line_ = {drawn.left, drawn.top, drawn.left + lineWidth, drawn.bottom};
        if (drawn.left < lineWidth && drawn.bottom - drawn.top < lineHeight)
            return;
        typeWords(keycode, 1); // a line further on
    }
    throw std::runtime_error("there is no line to type in");
}

void KeyProbe::waitFor(const Area& area, const std::function<bool(const Picture&)>& shown,
                       const std::string& what) const {
    const auto end = Clock::now() + patience;
    while (!shown(picture(area)))
        if (!waitForDamage(end))
            throw std::runtime_error(what + " did not come to the screen");
}

void KeyProbe::key(std::uint8_t keycode, bool down) {
    xcb_test_fake_input(connection_.get(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keycode,
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(connection_.get());
}

void KeyProbe::typeUnseen(std::uint8_t keycode) {
    key(keycode, true);
    key(keycode, false);
}

void KeyProbe::typeWords(std::uint8_t keycode, int length) {
    for (int i = 0; i < length; ++i)
        typeUnseen(i % wordLength == 0 ? spaceKey : keycode);
    typeUnseen(spaceKey);
}

void KeyProbe::waitUntilQuiet() const {
    while (waitForDamage(Clock::now() + quietTime))
        continue;
}

Area KeyProbe::drawnBy(std::uint8_t keycode) {
    waitUntilQuiet();
    const Area screen = {0, 0, screen_->width_in_pixels, screen_->height_in_pixels};
    const Picture before = picture(screen);
    typeUnseen(keycode);
    if (!waitForDamage(Clock::now() + patience))
        throw std::runtime_error("a key drew nothing");
    waitUntilQuiet();
    return differenceOf(before, picture(screen));
}

Picture KeyProbe::picture(const Area& area) const {
    const auto width = static_cast<std::uint16_t>(area.right - area.left);
    const auto height = static_cast<std::uint16_t>(area.bottom - area.top);
    const auto request =
        xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root,
                      static_cast<std::int16_t>(area.left), static_cast<std::int16_t>(area.top),
                      width, height, ~std::uint32_t{0});
    const auto image = reply(xcb_get_image_reply(connection_.get(), request, nullptr));
    Picture picture = {area, std::vector<std::uint32_t>(std::size_t{width} * height)};
    std::memcpy(picture.pixels.data(), xcb_get_image_data(image.get()),
                picture.pixels.size() * sizeof(std::uint32_t));
    return picture;
}

// Takes one report of changed pixels, and waits for it until `end`; false if there is none.
bool KeyProbe::waitForDamage(Clock::time_point end) const {
    while (true) {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get()),
                                                      &std::free})
            if ((event->response_type & 0x7F) == damageEvent_)
                return true;
        const auto left = end - Clock::now();
        if (left <= 0s)
            return false;
        pollfd input = {xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
        poll(&input, 1, static_cast<int>(left / 1ms) + 1);
    }
}

} // namespace quillet
