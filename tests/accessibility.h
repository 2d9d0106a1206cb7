// The running program as assistive programs see it. A test program with this in it has buses for
// assistive programs of its own, and every program that a `DesktopSession` starts is on them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <atspi/atspi.h>

namespace quillet {

/// A piece of a text.
struct TextPart {
    int start = 0;
    int end = 0;
    std::string text = {}; // UTF-8
};

/// One object of the program's tree: a window, a button, an entry of a menu, a text. Every call
/// asks the program anew; where there is no such object, the answers are empty. Areas and points
/// are on the screen.
class Accessible {
  public:
    /// The root, whose children are the windows; waits ten seconds for it.
    static Accessible program();

    explicit operator bool() const { return object_ != nullptr; }

    std::string role() const; // such as "push button"
    std::string name() const;
    bool is(AtspiStateType state) const;
    AtspiRect area() const;
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

    std::string text() const; // UTF-8
    int length() const;
    TextPart textAt(int offset, AtspiTextBoundaryType unit) const;
    AtspiRect areaOf(int offset) const;
    int offsetAt(int x, int y) const;
    int caret() const;
    TextPart selection() const; // but for its text
    bool setCaret(int offset) const;
    bool select(int start, int end) const;

    /// The events of a type that came from this text since the last call: "text-changed" gives
    /// such as "delete 0 df; insert 0 fd; ", "text-caret-moved" such as "5; ", and
    /// "text-selection-changed" "0; ". Waits ten seconds for as many as are expected.
    std::string events(const std::string& type, const std::string& expected = "") const;

  private:
    explicit Accessible(AtspiAccessible* object);
    Accessible first(const std::function<bool(const Accessible&)>& fits) const;
    AtspiText* asText() const { return ATSPI_TEXT(object_.get()); }

    std::shared_ptr<AtspiAccessible> object_;
};

} // namespace quillet
