#include "converter/converter_drop.h"

#include "converter/converter_window.h"
#include "measure/format_text.h"
#include "measure/number_text.h"
#include "measure/parse_text.h"
#include "measure/text_tools.h"
#include "measure/whole_numbers.h"

namespace converter {

namespace {

constexpr double kInchesPerFoot = 12;
constexpr double kInchesPerYard = 36;
constexpr double kFeetPerMile = 5280;
constexpr double kSquareInchesPerFoot = 144;
constexpr double kSquareInchesPerYard = 1296;
constexpr double kSquareFeetPerAcre = 43560;
constexpr double kCubicInchesPerFoot = 1728;
constexpr double kCubicInchesPerYard = 46656;

// The lines of one drop. The fixed-point number is the handler's own: a
// line whose value does not fit shows the number of the line before.
struct Lines {
    core::Program& p;
    double fixed = 0;
    std::int16_t fractionCount = 0;  // the format routines' working space

    void Set(int line, const std::string& text) {
        p.Converter->Get("lblLabel", line).SetCaption(text);
    }
    std::string Decimals(double value) { return FourDecimalText(value, fixed); }
};

void LengthLines(Lines& l, std::string text) {
    double v = 0;
    measure::ParseLengthText(text, v);
    std::string formatted;
    measure::FormatLength(v, formatted, l.p.AccuracyDenominator, l.fractionCount);
    l.Set(2, formatted + " ");
    l.Set(3, l.Decimals(v) + "\" ");
    l.Set(4, l.Decimals(v / kInchesPerFoot) + "' ");
    l.Set(5, l.Decimals(v / kInchesPerYard) + " yds ");
    l.Set(6, l.Decimals(v / kInchesPerFoot / kFeetPerMile) + " miles ");
}

void AreaLines(Lines& l, std::string text) {
    double v = 0;
    measure::ParseAreaText(text, v);
    std::string formatted;
    measure::FormatArea(v, formatted, l.fractionCount);
    l.Set(2, formatted + "sq ");
    l.Set(3, l.Decimals(v) + "\"sq ");
    l.Set(4, l.Decimals(v / kSquareInchesPerFoot) + "'sq ");
    l.Set(5, l.Decimals(v / kSquareInchesPerYard) + " sy ");
    l.Set(6, l.Decimals(v / kSquareInchesPerFoot / kSquareFeetPerAcre) + " acres ");
}

void VolumeLines(Lines& l, std::string text) {
    double v = 0;
    measure::ParseVolumeText(text, v);
    std::string formatted;
    measure::FormatVolume(v, formatted, l.fractionCount);
    l.Set(2, formatted + "cu ");
    l.Set(3, l.Decimals(v) + "\"cu ");
    l.Set(4, l.Decimals(v / kCubicInchesPerFoot) + "'cu ");
    l.Set(5, l.Decimals(v / kCubicInchesPerYard) + " cy ");
    l.Set(6, "");
}

}  // namespace

std::string FourDecimalText(double value, double& fixed) {
    if (auto scaled = measure::ToFixedPoint4(value)) fixed = measure::FromFixedPoint4(*scaled);
    return measure::NumberText(fixed);
}

void ConverterLabelDragDrop(core::Program& p, forms::Control& source) {
    forms::Form& conv = *p.Converter;
    forms::Control& echo = conv.Get("Label1");
    echo.SetCaption(measure::TrimBlanks(source.Caption()) + " ");
    if (conv.Height() != kOpenHeight) {
        p.Collapsed = false;
        conv.SetHeight(kOpenHeight);
    }
    // The kind is told from the echo; "cu" wins over "sq". The value is read
    // from the source's own caption, blanks and all.
    Lines lines{p};
    const std::string& kind = echo.Caption();
    if (kind.find("cu") != std::string::npos) {
        VolumeLines(lines, source.Caption());
    } else if (kind.find("sq") != std::string::npos) {
        AreaLines(lines, source.Caption());
    } else {
        LengthLines(lines, source.Caption());
    }
}

void ClearConverter(core::Program& p) {
    forms::Form& conv = *p.Converter;
    conv.Get("Label1").SetCaption("Drop Here     ");
    for (int i = kFirstLine; i <= kLastLine; ++i) conv.Get("lblLabel", i).SetCaption("");
    ToggleFold(p);
}

void ConverterDragOver(core::Program& p, forms::Control& source) {
    source.SetDragIcon(p.Calculator->Get("Image3").Caption());
}

void WireConverterDrop(core::Program& p) {
    forms::Form& conv = *p.Converter;
    forms::Control& echo = conv.Get("Label1");
    echo.DragDrop = [&p](forms::Control& source, float, float) {
        ConverterLabelDragDrop(p, source);
    };
    echo.DblClick = [&p] { ClearConverter(p); };
    conv.DragOver = [&p](forms::Control& source, float, float, int) {
        ConverterDragOver(p, source);
    };
}

}  // namespace converter
