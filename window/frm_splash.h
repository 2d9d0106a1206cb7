// The window that the program starts with.
#pragma once

#include "platform/form.h"

#include <cstdint>

namespace quillet {

/// Shows the product's picture for six seconds and then the main window. Neither clicks nor keys
/// shorten that.
class frmSplash : public Form {
  public:
    frmSplash(FormHost& forms, Form& mainWindow);

    void Timer1_Timer();

  protected:
    void Form_Load() override;
    void Form_Unload(std::int16_t& Cancel) override { Cancel = 1; } // it goes by itself

  private:
    Form& mainWindow_;
    std::int16_t ticks_ = 0;
};

} // namespace quillet
