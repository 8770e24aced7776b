#pragma once

/// @file
/// Linear equations in two integers.

#include <OrvelMath/OrvelMathExport.h>

/// Solves a*x + b*y = c in integers for fixed a and b and any number of c, by the extended
/// Euclidean algorithm (Bézout, 1779), which runs once in the constructor. Each query takes
/// constant time.
///
/// All arithmetic is in 32 bits and wraps silently; division truncates. The greatest common divisor
/// g has the sign that truncating division leaves it with and may be negative: -2 for a = 4,
/// b = -6.
///
/// Two things are FATAL PROCESSOR FAULTS, and nothing guards against them: both coefficients 0, and
/// any division of -2147483648 by -1, in the constructor or in a query.
///
/// A plain value; queries only read.
class ORVELMATH_EXPORT LinearDiophantineEquationC
{
public:
    /// Runs the Euclidean algorithm, in at most 47 divisions.
    LinearDiophantineEquationC(int a, int b);
    LinearDiophantineEquationC(LinearDiophantineEquationC const &);
    LinearDiophantineEquationC(LinearDiophantineEquationC &&) noexcept;
    LinearDiophantineEquationC &operator=(LinearDiophantineEquationC const &);
    LinearDiophantineEquationC &operator=(LinearDiophantineEquationC &&) noexcept;

    /// Finds one solution and the steps to its neighbours: all solutions are x + k*xStep,
    /// y + k*yStep.
    ///
    /// @param c                  the right-hand side
    /// @param x, y, xStep, yStep written when there is a solution
    /// @return false when c is no multiple of g
    bool solve(int c, int &x, int &y, int &xStep, int &yStep) const;

    /// Finds where the solutions enter and leave the range xMin <= x <= xMax, yMin <= y <= yMax.
    ///
    /// `x` belongs to the LOW end of the interval of solutions and `y` to the HIGH end: together
    /// they are a solution only when the interval holds a single one. For positive a and b they are
    /// each the smallest value that the range allows. The bounds of the interval are quotients
    /// whose fraction is rounded up in magnitude for a positive dividend and dropped for a negative
    /// one, and a quotient of magnitude below 1 counts as 0. That is no true ceiling: the ends may
    /// lie a step off the range.
    ///
    /// @param c                      the right-hand side
    /// @param xMin, xMax, yMin, yMax the range, ends included
    /// @param x, y                   written when the answer is true
    /// @return false when c is no multiple of g, when a or b is 0 (even if the range holds
    ///         solutions), and when the interval is empty
    bool findSolutionInRange(int c, int xMin, int xMax, int yMin, int yMax, int &x, int &y) const;

    /// True when x*a + y*b equals c.
    bool testSolution(int c, int x, int y) const;

private:
    void init();

    int m_a;
    int m_b;
    int m_x0;
    int m_y0;
    int m_xStep;
    int m_yStep;
    int m_g;
};
