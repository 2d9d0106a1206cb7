// A printer whose glyphs are all of one size, and which keeps what it prints as text.
#pragma once

#include "platform/printer.h"

#include <functional>
#include <string>
#include <vector>

namespace quillet {

struct FakePrinter : Printer {
    std::function<void()> called; // at every call that does or measures something

    explicit FakePrinter(std::function<void()> atEachCall = [] {})
        : called(std::move(atEachCall)) {}

    float x = 0, y = 0;
    float width = 11000, height = 15000; // of the page
    float glyphWidth = 100, lineHeight = 300;
    int page = 1;
    std::string font = "Printer@0"; // as "name@size"
    std::vector<std::string> calls; // such as "800,1000 word"

    float CurrentX() const override { return x; }
    void CurrentX(float value) override { x = value; }
    float CurrentY() const override { return y; }
    void CurrentY(float value) override { y = value; }
    float ScaleWidth() override {
        called();
        return width;
    }
    float ScaleHeight() override {
        called();
        return height;
    }
    int Page() const override { return page; }
    void FontName(const std::string& name) override {
        called();
        font = name + font.substr(font.find('@'));
    }
    void FontSize(double points) override {
        called();
        font = font.substr(0, font.find('@') + 1) + std::to_string(points).substr(0, 5);
    }
    float TextWidth(GlyphView text) override {
        called();
        return glyphWidth * static_cast<float>(text.size());
    }
    float TextHeight(GlyphView) override {
        called();
        return lineHeight;
    }

    void Print(GlyphView text) override {
        called();
        if (!text.empty())
            calls.push_back(number(x) + "," + number(y) + " " + GlyphString(text));
        x += glyphWidth * static_cast<float>(text.size());
    }

    void NewLine() override {
        called();
        x = 0;
        y += lineHeight;
    }

    void NewPage() override {
        called();
        calls.emplace_back("new page");
        ++page;
    }

    void EndDoc() override {
        called();
        calls.emplace_back("end in " + font);
    }

  private:
    static std::string number(float value) { return std::to_string(static_cast<int>(value)); }
};

} // namespace quillet
