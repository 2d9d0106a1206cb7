// What forms ask of the desktop that shows them.
#pragma once

namespace quillet {

class Form;

/// Gives forms their native windows. A form calls it after its own state has changed.
class FormHost {
  public:
    virtual ~FormHost() = default;

    /// The form became visible, or was shown again: its window comes to the front.
    virtual void show(Form& form) = 0;

    /// The form is no longer visible, whether hidden or unloaded.
    virtual void hide(Form& form) = 0;

    /// The form's caption changed while it was loaded.
    virtual void captionChanged(Form& form) = 0;
};

} // namespace quillet
