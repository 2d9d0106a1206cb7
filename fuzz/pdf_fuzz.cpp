// The PDF writer with any source, settings and order of runs.
#include "base/run_time_error.h"
#include "fuzz/input.h"
#include "output/pdf_writer.h"
#include "tests/fake_desktop.h"

namespace quillet::fuzz {
namespace {

void run(Input input) {
    FakeDesktop desktop;
    CPdfWriter writer(desktop, desktop);
    writer.SourceFile("source");
    writer.TargetFile("target");
    writer.Font(std::string(input.text(input.byte() % 32)));
    const int runs = 1 + input.byte() % 2;
    const auto number = [&] { return static_cast<double>(input.upTo(0xFFFF)) - 0x8000; };
    const double records = input.byte() % 4 == 0 ? number() : input.byte() % 100;
    const double width = number();
    const double size = number();
    desktop.disk["source"] = input.rest();
    desktop.disk["target"] = "old";
    try {
        writer.RecordsPerPage(records);
        writer.Width(width / 64);
        writer.FontSize(size);
        for (int i = 0; i < runs; ++i)
            writer.CreatePDFFile();
    } catch (const RunTimeError&) {
        const GlyphString& target = desktop.disk["target"];
        check(runs > 1 || target == "old" || target.empty(), "a failure writes no half of a file");
        return;
    }
    const GlyphString& target = desktop.disk["target"];
    check(target.starts_with("%PDF-1.2 \r\n") && target.ends_with("%%EOF\r\n"), "a whole file");
}

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::run({data, size});
    return 0;
}
