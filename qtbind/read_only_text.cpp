#include "qtbind/read_only_text.h"

#include <algorithm>

namespace qtbind {

void ReadOnlyText::selection(int, int* startOffset, int* endOffset) const {
    *startOffset = 0;
    *endOffset = 0;
}

QString ReadOnlyText::text(int startOffset, int endOffset) const {
    const QString all = CurrentText();
    // -1 reads to the end, as the screen readers ask for the whole text.
    if (endOffset < 0 || endOffset > all.size()) endOffset = static_cast<int>(all.size());
    startOffset = std::clamp(startOffset, 0, endOffset);
    return all.mid(startOffset, endOffset - startOffset);
}

QString ReadOnlyText::attributes(int offset, int* startOffset, int* endOffset) const {
    // One run without attributes over the whole text.
    *startOffset = 0;
    *endOffset = std::max(offset, characterCount());
    return {};
}

}  // namespace qtbind
