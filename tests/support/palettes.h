#pragma once

#include <QApplication>
#include <QPalette>

/// A palette of few colours: those of windows, of bases, and of what is selected.
inline QPalette paletteOf(const QColor& window, const QColor& base, const QColor& text, const QColor& highlight,
                          const QColor& highlighted) {
    QPalette palette(window);
    for (const auto role : {QPalette::Window, QPalette::Button}) palette.setColor(role, window);
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
        palette.setColor(role, base);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
                            QPalette::ToolTipText, QPalette::PlaceholderText}) {
        palette.setColor(role, text);
    }
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

inline QPalette someDarkPalette() { return paletteOf("#36363A", "#222226", "#F0F0F2", "#2F6FC4", "#FFFFFF"); }
inline QPalette blackPalette() { return paletteOf("#000000", "#000000", "#FFFFFF", "#FFFF00", "#000000"); }
inline QPalette whitePalette() { return paletteOf("#FFFFFF", "#FFFFFF", "#000000", "#000080", "#FFFFFF"); }

/// Gives the whole program a palette as long as it lives.
class ShownPalette {
public:
    explicit ShownPalette(const QPalette& palette) { show(palette); }
    ~ShownPalette() { show(QPalette()); }
    ShownPalette(const ShownPalette&) = delete;
    ShownPalette& operator=(const ShownPalette&) = delete;

private:
    static void show(const QPalette& palette) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();  // Windows hear of it later.
    }
};
