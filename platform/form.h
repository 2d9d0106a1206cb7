// Windows as data: a design table and a life, without a toolkit.
#pragma once

#include "base/glyph_string.h"
#include "base/twips.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

class FormHost;

enum class ControlKind { Label, Button, Picture, DropDownList, TextBox, Timer };

/// The font of a control; without a family, the desktop's own font and size.
struct ControlFont {
    const char* family = nullptr;
    double points = 0;
    bool bold = false;
};

/// One row of a form's design. Positions are within the client area. The rows stand in tab order.
struct ControlDesign {
    ControlKind kind;
    const char* name;
    const char* caption = ""; // "&" marks an access key; a picture's is its image key
    Twips left = {}, top = {}, width = {}, height = {};
    ControlFont font = {};
    int interval = 0; // of a timer, in milliseconds; it runs while the form is visible
};

/// How a window opens, and what its frame offers.
enum class FormFrame {
    Maximized, // an ordinary window that fills the screen
    Sizable,   // an ordinary window, placed by the desktop
    Fixed,     // a dialog in the middle of the screen
    Splash,    // a dialog there without a title, buttons or an entry in the task bar
};

struct FormDesign {
    const char* name;
    const char* caption;
    FormFrame frame;
    Twips width, height; // of the client area; not used when maximized
    std::span<const ControlDesign> controls;
};

/// A control of a loaded form.
class Control {
  public:
    explicit Control(const ControlDesign& design) : design_(&design), caption_(design.caption) {}

    const ControlDesign& design() const { return *design_; }

    /// The text of a label or button, or what a drop-down list shows while no entry is chosen.
    const std::string& Caption() const { return caption_; }
    void Caption(std::string caption);

    /// What stands in a text box: glyph codes, one byte each and not UTF-8.
    const GlyphString& Text() const { return text_; }
    void Text(GlyphString text);

    /// The entries of a drop-down list, and the place of the chosen one (-1: none).
    std::vector<std::string> List;
    int ListIndex = -1;

    /// Run when the user clicks the control or chooses an entry, also the one already shown, and
    /// at every tick of a timer.
    std::function<void()> Click;

    /// Run when caption or text have changed; for the window that shows the control.
    std::function<void()> Changed;

    /// The user clicks the control, or chooses entry `index` of a drop-down list. The handler may
    /// unload the form, and with it this control.
    void click();
    void choose(int index);

  private:
    const ControlDesign* design_;
    std::string caption_;
    GlyphString text_;
};

/// A window. It is not loaded at first; loading makes its controls anew and runs `Form_Load`, and
/// unloading drops them and all that they held.
class Form {
  public:
    Form(FormHost& host, const FormDesign& design);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const FormDesign& design() const { return design_; }
    bool isVisible() const { return visible_; }

    const std::string& Caption() const { return caption_; }
    void Caption(std::string caption);

    /// The controls in tab order. `control` loads the form where it must; the name must be one of
    /// the design's.
    std::span<Control> controls() { return controls_; }
    Control& control(std::string_view name);

    void load();
    void show(); // loads first; a visible form comes to the front
    void hide();
    void unload();

    /// The user closes the window by its close box: `Form_Unload` runs and may refuse.
    void close();

    /// The window was shown, resized, minimized or restored.
    void resized() { Form_Resize(); }

  protected:
    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    virtual void Form_Unload(std::int16_t& /*Cancel*/) {}

  private:
    FormHost& host_;
    const FormDesign& design_;
    std::string caption_;
    std::vector<Control> controls_;
    bool loaded_ = false;
    bool visible_ = false;
};

} // namespace quillet
