#include "SvgText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace gallery {

std::string svgNumber(double value)
{
    if (!std::isfinite(value)) {
        throw std::runtime_error("the figure draws a coordinate that is not finite");
    }
    char digits[400];
    std::to_chars_result const end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2);
    std::string text(digits, end.ptr);
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.') {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string xmlEscaped(std::string const &text)
{
    std::string escaped;
    for (char const c : text) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

std::size_t characterCount(std::string const &text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; // not a continuation byte
    }));
}

std::string attribute(char const *name, double value)
{
    return std::string(" ") + name + "=\"" + svgNumber(value) + '"';
}

} // namespace gallery
