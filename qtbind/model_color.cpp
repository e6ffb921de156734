#include "qtbind/model_color.h"

namespace qtbind {

QColor ModelColor(std::uint32_t color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

}  // namespace qtbind
