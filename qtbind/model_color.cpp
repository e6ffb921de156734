#include "qtbind/model_color.h"

namespace qtbind {

QColor ModelColor(std::uint32_t color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

std::uint32_t ModelColorOf(const QColor& color) {
    return static_cast<std::uint32_t>(color.red()) |
           static_cast<std::uint32_t>(color.green()) << 8 |
           static_cast<std::uint32_t>(color.blue()) << 16;
}

}  // namespace qtbind
