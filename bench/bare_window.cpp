// A window that fills a rectangle at every key: the least that can be between key and pixels.
#include <cstdint>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace {

constexpr std::uint8_t returnKey = 36;
constexpr std::int16_t step = 12;
constexpr std::uint16_t lineHeight = 24;

// Draws in place of a glyph, and begins a line at Return.
class BareWindow {
  public:
    explicit BareWindow(xcb_connection_t* display)
        : display_(display),
          window_(xcb_generate_id(display)),
          ink_(xcb_generate_id(display)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display)).data;
        const std::uint32_t values[] = {screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS};
        xcb_create_window(display, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1000, 800, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
        constexpr char title[] = "Bare window";
        xcb_change_property(display, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, sizeof title - 1, title);
        xcb_create_gc(display, ink_, window_, XCB_GC_FOREGROUND, &screen->black_pixel);
        xcb_map_window(display, window_);
        xcb_flush(display);
    }

    void press(std::uint8_t keycode) {
        if (keycode == returnKey) {
            next_ = {0, static_cast<std::int16_t>(next_.y + lineHeight), step, lineHeight};
            return;
        }
        xcb_poly_fill_rectangle(display_, window_, ink_, 1, &next_);
        xcb_flush(display_);
        next_.x = static_cast<std::int16_t>(next_.x + step);
    }

  private:
    xcb_connection_t* display_;
    xcb_window_t window_;
    xcb_gcontext_t ink_;
    xcb_rectangle_t next_ = {0, 0, step, lineHeight};
};

} // namespace

int main() {
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    BareWindow window(display);
    while (const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event{
        xcb_wait_for_event(display), &std::free})
        if ((event->response_type & 0x7F) == XCB_KEY_PRESS)
            window.press(reinterpret_cast<xcb_key_press_event_t*>(event.get())->detail);
    xcb_disconnect(display);
}
