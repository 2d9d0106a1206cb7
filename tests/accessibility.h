// The running program as assistive programs see it. A test program with this in it has buses for
// assistive programs of its own, and every program that a `DesktopSession` starts is on them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <atspi/atspi.h>

namespace quillet {

/// What the library hands over is to be freed.
template <class T>
T taken(T* value) {
    const std::unique_ptr<T, decltype(&g_free)> owner(value, g_free);
    return value != nullptr ? *value : T{};
}
inline std::string taken(char* text) {
    const std::unique_ptr<char, decltype(&g_free)> owner(text, g_free);
    return text != nullptr ? text : "";
}

/// A piece of a text.
struct TextPart {
    int start;
    int end;
    std::string text; // UTF-8
};

/// One object of the program's tree: a window, a button, an entry of a menu, a text. Every call
/// asks the program anew; where there is no such object, the answers are empty. Areas and points
/// are on the screen.
class Accessible {
  public:
    /// The root, whose children are the windows; waits ten seconds for it.
    static Accessible program();

    explicit operator bool() const { return object_ != nullptr; }

    // Of a role such as "push button".
    std::string role() const { return taken(atspi_accessible_get_role_name(get(), nullptr)); }
    std::string name() const { return taken(atspi_accessible_get_name(get(), nullptr)); }
    bool is(AtspiStateType state) const;
    std::vector<Accessible> children() const;

    /// The first object below this with a role and a name; waits ten seconds for it.
    Accessible find(const std::string& role, const std::string& name) const;

    /// The object below this that has the focus.
    Accessible focused() const;

    /// The names of the objects below this with a role, from the top down, but for the nameless.
    std::vector<std::string> names(const std::string& role) const;

    /// Does what the object is there for: presses the button, chooses the entry. Does not wait
    /// for the dialog that this opens.
    void invoke() const;

    std::string text() const { return taken(atspi_text_get_text(asText(), 0, -1, nullptr)); }
    int length() const { return atspi_text_get_character_count(asText(), nullptr); }
    TextPart textAt(int offset, AtspiTextBoundaryType unit) const {
        const auto part = taken(atspi_text_get_text_at_offset(asText(), offset, unit, nullptr));
        return {part.start_offset, part.end_offset, taken(part.content)};
    }
    AtspiRect areaOf(int offset) const {
        return taken(
            atspi_text_get_character_extents(asText(), offset, ATSPI_COORD_TYPE_SCREEN, nullptr));
    }
    int offsetAt(int x, int y) const {
        return atspi_text_get_offset_at_point(asText(), x, y, ATSPI_COORD_TYPE_SCREEN, nullptr);
    }
    int caret() const { return atspi_text_get_caret_offset(asText(), nullptr); }
    std::pair<int, int> selection() const {
        const auto part = taken(atspi_text_get_selection(asText(), 0, nullptr));
        return {part.start_offset, part.end_offset};
    }
    void setCaret(int offset) const { atspi_text_set_caret_offset(asText(), offset, nullptr); }
    void select(int start, int end) const {
        atspi_text_set_selection(asText(), 0, start, end, nullptr);
    }

    /// The events of a type that came from this text since the last call: "text-changed" gives
    /// such as "delete 0 df; insert 0 fd; ", "text-caret-moved" such as "5; ", and
    /// "text-selection-changed" "0; ". Waits ten seconds for as many as are expected.
    std::string events(const std::string& type, const std::string& expected = "") const;

  private:
    explicit Accessible(AtspiAccessible* object);
    Accessible first(const std::function<bool(const Accessible&)>& fits) const;
    AtspiAccessible* get() const { return object_.get(); }
    AtspiText* asText() const { return ATSPI_TEXT(get()); }

    std::shared_ptr<AtspiAccessible> object_;
};

} // namespace quillet
