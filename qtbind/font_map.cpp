#include "qtbind/font_map.h"

#include <algorithm>
#include <cmath>

namespace qtbind {

namespace {

constexpr double kTwipsPerPoint = 20.0;

bool IsSymbolFont(const std::string& name) {
    return name == "Marlett";
}

QString FamilyFor(const std::string& name) {
    if (name == "Courier" || name == "Courier New") return QStringLiteral("DejaVu Sans Mono");
    // "MS Sans Serif", "System", the root sign's "MS Reference 2" and the
    // arrows of "Marlett" all come out of the one sans serif.
    return QStringLiteral("DejaVu Sans");
}

// The arrows of the symbol font by the letters that select them.
QString SymbolGlyphs(const std::string& text) {
    QString out;
    for (char c : text) {
        switch (c) {
            case '3':
                out += QChar(0x25C0);  // left
                break;
            case '4':
                out += QChar(0x25B6);  // right
                break;
            case '5':
                out += QChar(0x25B2);  // up
                break;
            case '6':
                out += QChar(0x25BC);  // down
                break;
            default:
                out += QLatin1Char(c);
        }
    }
    return out;
}

}  // namespace

QFont MapFont(const forms::Font& font, const PixelScale& scale) {
    QFont f(FamilyFor(font.Name));
    f.setStyleHint(font.Name.starts_with("Courier") ? QFont::TypeWriter : QFont::SansSerif);
    const double pixels = font.Size * kTwipsPerPoint / scale.TwipsPerPixelY();
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    f.setBold(font.Bold);
    return f;
}

QString DisplayCaption(const forms::Control& control) {
    const std::string& caption = control.Caption();
    if (IsSymbolFont(control.GetFont().Name)) return SymbolGlyphs(caption);
    QString text = QString::fromStdString(caption);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text;
}

}  // namespace qtbind
