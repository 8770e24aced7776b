#include "figures.h"

#include <OrvelMath/numerics/CircleFit.h>
#include <OrvelMath/numerics/Transforms.h>
#include <OrvelMath/numerics/runPCA.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace gallery {

namespace {

double const kPi = 3.141592653589793;

/// Random numbers that are the same everywhere (the generator of P. L'Ecuyer, 1999, for 32 bits).
class Noise
{
public:
    explicit Noise(std::uint32_t seed)
        : m_state(seed)
    {
    }
    double uniform()
    {
        m_state = m_state * 1597334677u + 12345u;
        return (m_state >> 8) / 16777216.0;
    }
    /// Of mean 0 and deviation 1, by a sum of uniform numbers.
    double normal()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i) {
            sum += uniform();
        }
        return sum;
    }

private:
    std::uint32_t m_state;
};

/// The surface of a mug as a scanner sees it, with noise: wall, bottom and handle, tilted.
PValOrderedVector<Point3D> pointsOnAMug()
{
    PValOrderedVector<Point3D> points;
    Noise noise(7);
    auto const add = [&](double x, double y, double z) {
        double const c = std::cos(0.5);
        double const s = std::sin(0.5);
        points.append(Point3D(c * x + s * z + 0.02 * noise.normal(), y + 0.02 * noise.normal(),
                              -s * x + c * z + 0.02 * noise.normal()));
    };
    for (int i = 0; i < 500; ++i) {
        double const angle = 2 * kPi * noise.uniform();
        add(std::cos(angle), std::sin(angle), 4.6 * noise.uniform());
    }
    for (int i = 0; i < 120; ++i) {
        double const angle = 2 * kPi * noise.uniform();
        double const radius = std::sqrt(noise.uniform());
        add(radius * std::cos(angle), radius * std::sin(angle), 0.0);
    }
    for (int i = 0; i < 220; ++i) {
        double const along = kPi * noise.uniform();
        double const around = 2 * kPi * noise.uniform();
        double const reach = 1.0 + 0.16 * std::cos(around);
        add(1.0 + reach * std::sin(along), 0.16 * std::sin(around),
            2.4 + 1.4 * reach * std::cos(along));
    }
    return points;
}

void drawAxes(Panel &panel, Axonometric const &view, PValOrderedVector<Point3D> const &points)
{
    double value[3];
    double centre[3];
    Point3D axis[3];
    runPCA(value[0], centre[0], axis[0], value[1], centre[1], axis[1], value[2], centre[2], axis[2],
           points);
    Point3D const mean(centre[0], centre[1], centre[2]);
    for (Point3D const &p : points) {
        panel.smallPoint(view(p), Role::Given);
    }
    Role const roles[3] = {Role::Result, Role::Accent, Role::Second};
    for (int i = 0; i < 3; ++i) {
        Point3D const end = mean + 2.0 * std::sqrt(value[i]) * axis[i];
        panel.solution([&] { panel.arrow(view(mean), view(end), roles[i]); });
    }
    panel.point(view(mean), Role::Helper);
}

void drawPrincipalAxes(SvgCanvas &canvas)
{
    canvas.layout(2, 400, 400);
    PValOrderedVector<Point3D> const points = pointsOnAMug();
    Bounds const bounds{{-2.0, -2.0}, {4.8, 4.8}};
    Panel &oblique = canvas.panel("points on a mug, obliquely", bounds);
    drawAxes(oblique, Axonometric(-60, 25), points);
    Panel &fromAbove = canvas.panel("the same from the side", bounds);
    drawAxes(fromAbove, Axonometric(-90, 0), points);
    canvas.legend(Role::Given, "points");
    canvas.legend(Role::Helper, "centre");
    canvas.legend(Role::Result, "axis1: largest variance");
    canvas.legend(Role::Accent, "axis2");
    canvas.legend(Role::Second, "axis3: smallest; each arrow is two deviations long");
}

using CirclePoints = std::vector<vectorC2d<double>, OrvelAllocatorT<vectorC2d<double>>>;

/// Points of an arc of the unit circle, symmetric about the y axis, with noise.
CirclePoints noisyArc(double degrees, double deviation, std::uint32_t seed)
{
    Noise noise(seed);
    CirclePoints points;
    int const count = 40;
    for (int i = 0; i < count; ++i) {
        double const angle = kPi / 180 * (90 + degrees * (i / (count - 1.0) - 0.5));
        double const x = std::cos(angle) + deviation * noise.normal();
        points.emplace_back(x, std::sin(angle) + deviation * noise.normal());
    }
    return points;
}

/// The mean radius that either fit finds over many draws of the noise, by the angle of the arc.
void drawRadii(Panel &panel, double deviation)
{
    std::vector<Vec2> kasa;
    std::vector<Vec2> taubin;
    for (int degrees = 40; degrees <= 235; degrees += 5) {
        double sums[2] = {0.0, 0.0};
        int const draws = 200;
        for (int draw = 0; draw < draws; ++draw) {
            auto const points = noisyArc(degrees, deviation, std::uint32_t(1000 * degrees + draw));
            sums[0] += MatUtil::kasaFit(points).second;
            sums[1] += MatUtil::taubinFit(points, 0.0).second;
        }
        kasa.emplace_back(degrees, sums[0] / draws);
        taubin.emplace_back(degrees, sums[1] / draws);
    }
    panel.axes("", "");
    panel.line({40, 1}, {240, 1}, Role::Helper);
    panel.solution([&] { panel.polyline(kasa, Role::Accent); });
    panel.solution([&] { panel.polyline(taubin, Role::Result); });
}

void drawCircleFits(SvgCanvas &canvas)
{
    double const deviation = 0.03;
    for (int degrees : {40, 60, 90, 140, 220}) {
        Panel &panel = canvas.panel("an arc of " + std::to_string(degrees) + " degrees",
                                    {{-1.45, -1.4}, {1.45, 1.3}});
        auto const points = noisyArc(degrees, deviation, 3);
        auto const kasa = MatUtil::kasaFit(points);
        auto const taubin = MatUtil::taubinFit(points, 0.0);
        panel.circle({0, 0}, 1, Role::Helper);
        panel.solution([&] { panel.circle(kasa.first, kasa.second, Role::Accent); });
        panel.solution([&] { panel.circle(taubin.first, taubin.second, Role::Result); });
        for (auto const &p : points) {
            panel.smallPoint(p, Role::Given);
        }
    }
    Panel &radii = canvas.panel("mean radius of 200 draws, by the degrees", {{40, 0.4}, {240, 1.2}},
                                Scaling::Stretch);
    drawRadii(radii, deviation);
    canvas.legend(Role::Given, "points");
    canvas.legend(Role::Helper, "the true circle");
    canvas.legend(Role::Accent, "kasaFit");
    canvas.legend(Role::Result, "taubinFit");
}

struct Spectrum
{
    std::vector<double> re;
    std::vector<double> im;
};

Spectrum transformed(Spectrum signal)
{
    std::size_t const n = signal.re.size();
    Spectrum roots{std::vector<double>(n), std::vector<double>(n)};
    Spectrum result = roots;
    std::vector<double> scratch(2 * n);
    generateRoots(roots.re.data(), roots.im.data(), int(n));
    computeFFT(signal.re.data(), signal.im.data(), result.re.data(), result.im.data(), int(n),
               roots.re.data(), roots.im.data(), scratch.data());
    return result;
}

/// Lines up to the magnitudes divided by `scale`, for the bins below `count`.
void drawMagnitudes(Panel &panel, Spectrum const &spectrum, std::size_t count, double scale)
{
    panel.axes("k", "");
    for (std::size_t k = 0; k < count; ++k) {
        double const magnitude = std::hypot(spectrum.re[k], spectrum.im[k]) / scale;
        panel.line({double(k), 0}, {double(k), magnitude}, Role::Accent);
    }
}

void drawSpectrum(SvgCanvas &canvas)
{
    canvas.layout(3, 340, 260);
    std::size_t const n = 256;
    Noise noise(11);
    Spectrum tones;
    std::vector<Vec2> curve;
    for (std::size_t j = 0; j < n; ++j) {
        double const turn = 2 * kPi * double(j) / double(n);
        double const value = std::sin(12 * turn) + 0.5 * std::cos(40 * turn) + 0.3 * noise.normal();
        tones.re.push_back(value);
        tones.im.push_back(0.0);
        curve.emplace_back(double(j), value);
    }
    Panel &signal = canvas.panel("two tones under noise, 256 samples", {{-36, -2.4}, {256, 2.4}},
                                 Scaling::Stretch);
    signal.axes("j", "");
    signal.polyline(curve, Role::Given);

    Spectrum const spectrum = transformed(tones);
    Panel &amplitudes = canvas.panel("computeFFT: 2 |X[k]| / n\nshows a tone at 12 and one at 40",
                                     {{-18, -0.4}, {128, 1.2}}, Scaling::Stretch);
    drawMagnitudes(amplitudes, spectrum, n / 2, double(n) / 2);
    for (std::size_t k : {std::size_t(12), std::size_t(40)}) {
        double const amplitude = std::hypot(spectrum.re[k], spectrum.im[k]) / (double(n) / 2);
        amplitudes.solutionPoint({double(k), amplitude}, "k = " + std::to_string(k), Side::E);
    }

    Spectrum turning;
    for (std::size_t j = 0; j < 64; ++j) {
        turning.re.push_back(std::cos(2 * kPi * 5 * double(j) / 64));
        turning.im.push_back(std::sin(2 * kPi * 5 * double(j) / 64));
    }
    Spectrum const turned = transformed(turning);
    Panel &exponent = canvas.panel("|X[k]| of exp(+2 pi i 5 j / 64): the exponent\n"
                                   "is positive, so the peak is at 64 - 5",
                                   {{-9, -25}, {64, 75}}, Scaling::Stretch);
    drawMagnitudes(exponent, turned, 64, 1.0);
    exponent.solutionPoint({59, std::hypot(turned.re[59], turned.im[59])}, "k = 59", Side::W);
    canvas.legend(Role::Given, "signal");
    canvas.legend(Role::Accent, "magnitudes");
    canvas.legend(Role::Result, "peaks");
}

} // namespace

std::vector<Figure> numericsFigures()
{
    return {
        {"principal_axes.svg", "Principal axes of a cloud of points (runPCA)", 6,
         drawPrincipalAxes},
        {"circle_fits.svg", "Circle fits on arcs of growing angle (kasaFit, taubinFit)", 12,
         drawCircleFits},
        {"spectrum.svg", "Spectra (computeFFT)", 3, drawSpectrum},
    };
}

} // namespace gallery
