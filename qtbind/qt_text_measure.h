// The width of a text as the desktop writes it: the metrics of the Qt font
// that a model font is shown in (see font_map.h), turned into twips at the
// binding's scale.
#pragma once

#include <QFontMetrics>
#include <optional>

#include "forms/services.h"
#include "qtbind/pixel_scale.h"

namespace qtbind {

class QtTextMeasure : public forms::TextMeasure {
  public:
    // Needs a QGuiApplication while it measures.
    explicit QtTextMeasure(const PixelScale& scale) : scale_(scale) {}

    double TextWidth(const forms::Font& font, const std::string& text) const override;

  private:
    PixelScale scale_;
    // The metrics of the font measured last: a walk over the cells
    // measures every one of them in the same font.
    mutable std::optional<forms::Font> font_;
    mutable std::optional<QFontMetrics> metrics_;
};

}  // namespace qtbind
