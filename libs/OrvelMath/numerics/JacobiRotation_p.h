#pragma once

/// @file
/// The plane rotation of the Jacobi method.

#include <cmath>

/// The rotation that makes an element of a symmetric matrix zero, after H. Rutishauser (1966): the
/// tangent t of its angle, the sine s, and tau = tan(angle / 2), by which a rotated element differs
/// from itself by a small product.
struct JacobiRotation
{
    JacobiRotation(double app, double aqq, double apq)
    {
        double const theta = (aqq - app) / (apq + apq);
        double const sign = theta < 0.0 ? -1.0 : 1.0;
        t = sign / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
        double const c = 1.0 / std::sqrt(t * t + 1.0);
        s = c * t;
        tau = s / (1.0 + c);
    }

    /// True when element (p, q) is lost in both diagonal elements even a hundredfold: it needs no
    /// rotation.
    static bool isNegligible(double apq, double app, double aqq)
    {
        double const pMagnitude = std::fabs(app);
        double const qMagnitude = std::fabs(aqq);
        double const g = 100.0 * std::fabs(apq);
        return pMagnitude + g == pMagnitude && qMagnitude + g == qMagnitude;
    }

    double t;
    double s;
    double tau;
};
