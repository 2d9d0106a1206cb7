// Windows as data: a design table and a life, without a toolkit.
#pragma once

#include "base/twips.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

class FormHost;

enum class ControlKind { Label, Button, Picture, DropDownList };

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
    const char* caption; // "&" marks the access key of a button; a picture's is its image key
    Twips left, top, width, height;
    ControlFont font = {};
};

/// How a window opens, and what its frame offers.
enum class FormFrame { Maximized, Fixed };

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
    explicit Control(const ControlDesign& design) : design_(&design) {}

    const ControlDesign& design() const { return *design_; }

    /// The text of a label or button, or what a drop-down list shows while no entry is chosen.
    std::string Caption() const { return design_->caption; }

    /// The entries of a drop-down list, and the place of the chosen one (-1: none).
    std::vector<std::string> List;
    int ListIndex = -1;

    /// Run when the user clicks the control or chooses an entry, also the one already shown.
    std::function<void()> Click;

    /// The user clicks the control, or chooses entry `index` of a drop-down list. The handler may
    /// unload the form, and with it this control.
    void click();
    void choose(int index);

  private:
    const ControlDesign* design_;
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
