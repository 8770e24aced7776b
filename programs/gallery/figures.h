#pragma once

/// @file
/// The figures of the documentation.

#include "SvgCanvas.h"

#include <functional>
#include <string>
#include <vector>

namespace gallery {

/// One picture of the gallery.
struct Figure
{
    std::string file;      ///< file name within the output folder, "tangente_punkt_kreis.svg"
    std::string title;     ///< heading of the picture
    int expectedSolutions; ///< how many marks of class "solution" the picture shows
    std::function<void(SvgCanvas &)> draw;
};

// One function a subject, each in <subject>Figures.cpp; figures.cpp concatenates them.
std::vector<Figure> planeFigures();
std::vector<Figure> constructionFigures();
std::vector<Figure> conicFigures();
std::vector<Figure> spaceFigures();
std::vector<Figure> numericsFigures();
std::vector<Figure> lookupFigures();
std::vector<Figure> volumeFigures();
std::vector<Figure> exactFigures(); // only with OrvelExact

/// All figures of the gallery, subject by subject.
std::vector<Figure> allFigures();

/// The figure as an SVG document; throws std::runtime_error when a coordinate is not finite.
std::string render(Figure const &figure, Theme theme = Theme::System);

} // namespace gallery
