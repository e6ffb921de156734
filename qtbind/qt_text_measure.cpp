#include "qtbind/qt_text_measure.h"

#include "qtbind/font_map.h"

namespace qtbind {

double QtTextMeasure::TextWidth(const forms::Font& font, const std::string& text) const {
    if (!font_ || *font_ != font) {
        font_ = font;
        metrics_.emplace(MapFont(font, scale_));
    }
    return metrics_->horizontalAdvance(QString::fromStdString(text)) * scale_.TwipsPerPixelX();
}

}  // namespace qtbind
