#include "platform/common_dialog.h"

#include "base/run_time_error.h"

namespace quillet {
namespace {

// Takes the text up to the next "|" off the front of `rest`.
std::string_view nextField(std::string_view& rest) {
    const std::size_t bar = rest.find('|');
    const std::string_view field = rest.substr(0, bar);
    rest.remove_prefix(bar == std::string_view::npos ? rest.size() : bar + 1);
    return field;
}

} // namespace

std::vector<FileFilter> parseFilters(std::string_view text) {
    std::vector<FileFilter> filters;
    while (!text.empty()) {
        const std::string_view description = nextField(text);
        const std::string_view patterns = nextField(text);
        if (!patterns.empty())
            filters.push_back({std::string(description), std::string(patterns)});
    }
    return filters;
}

void CommonDialog::show(FileChooser::Purpose purpose) {
    const auto chosen = files_.choose(purpose, parseFilters(Filter), FileName);
    if (chosen)
        FileName = *chosen;
    else
        cancelled();
}

void CommonDialog::ShowPrinter() {
    if (!printers_.choosePrinter())
        cancelled();
}

void CommonDialog::cancelled() const {
    if (CancelError)
        throw RunTimeError(ErrorNumber::DialogCancelled);
}

} // namespace quillet
