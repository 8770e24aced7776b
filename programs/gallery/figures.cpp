#include "figures.h"

namespace gallery {

std::vector<Figure> allFigures()
{
    std::vector<Figure> (*const subjects[])() = {
        planeFigures,    constructionFigures, conicFigures,  spaceFigures,
        numericsFigures, lookupFigures,       volumeFigures,
#ifdef ORVEL_HAVE_EXACT
        exactFigures,
#endif
    };
    std::vector<Figure> figures;
    for (auto const subject : subjects) {
        std::vector<Figure> const some = subject();
        figures.insert(figures.end(), some.begin(), some.end());
    }
    return figures;
}

std::string render(Figure const &figure, Theme theme)
{
    SvgCanvas canvas(figure.title);
    figure.draw(canvas);
    return canvas.svg(theme);
}

} // namespace gallery
