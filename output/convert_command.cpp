#include "output/convert_command.h"

#include "base/run_time_error.h"
#include "output/pdf_writer.h"
#include "platform/desktop.h"
#include "platform/main_state.h"
#include "platform/message_box.h"

namespace quillet {
namespace {

constexpr int extensionLength = 4;
constexpr const char* pdfExtension = ".pdf";

bool continuesCharacter(char byte) {
    return (glyphCode(byte) & 0xC0) == 0x80;
}

// Takes away the last four characters, whatever they are; a path that has fewer fails. Paths are
// UTF-8, so that a character may be several bytes.
std::string withoutExtension(const std::string& path) {
    std::size_t end = path.size();
    for (int i = 0; i < extensionLength; ++i) {
        if (end == 0)
            throw RunTimeError(ErrorNumber::InvalidProcedureCall);
        do
            --end;
        while (end > 0 && continuesCharacter(path[end]));
    }
    return path.substr(0, end);
}

} // namespace

ConvertCommand::ConvertCommand(MainState& state, const Desktop& desktop)
    : state_(state),
      files_(desktop.files),
      messageBox_(desktop.messageBox) {}

void ConvertCommand::ConvertToPdf() {
    if (state_.NewFile) {
        messageBox_.show({.text = "Please save your file before conversion"});
        return;
    }
    CPdfWriter writer(files_, messageBox_);
    const std::string& path = state_.NameofFile;
    resumeNext([&] { writer.SourceFile(path); },
               [&] { writer.TargetFile(withoutExtension(path) + pdfExtension); },
               [&] { writer.RecordsPerPage(60); }, [&] { writer.Width(80); },
               [&] { writer.FontSize(12); }, [&] { writer.Font("Kruti Dev 020"); },
               [&] { writer.CreatePDFFile(); },
               [&] { messageBox_.show({.text = "File converted to PDF format with same name"}); });
}

} // namespace quillet
