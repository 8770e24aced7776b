#include <OrvelMath/base/Matrix4X4C.h>

#include <cstring>

namespace {

// The matrix under reduction and the companion that becomes its inverse.
struct Elimination
{
    double (*const m)[4];
    double inverse[4][4] = {
        {1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};

    static double snapped(double v) { return v > -1e-9 && v < 1e-9 ? 0.0 : v; }

    void addRow(int destination, int source, double factor)
    {
        for (int k = 0; k < 4; ++k) {
            m[destination][k] = snapped(factor * m[source][k] + m[destination][k]);
        }
        for (int k = 0; k < 4; ++k) {
            inverse[destination][k] =
                snapped(factor * inverse[source][k] + inverse[destination][k]);
        }
    }

    bool repairDiagonal()
    {
        for (int i = 0; i < 4; ++i) {
            if (m[i][i] == 0.0) {
                int row = 0;
                while (row < 4 && m[row][i] == 0.0) {
                    ++row;
                }
                if (row == 4) {
                    return false;
                }
                addRow(i, row, 1.0);
            }
        }
        return true;
    }

    // Row q serves as a source for pivot p: zeros before column p, and none in it.
    bool canRepairPivot(int q, int p) const
    {
        for (int k = 0; k < p; ++k) {
            if (m[q][k] != 0.0) {
                return false;
            }
        }
        return m[q][p] != 0.0;
    }

    bool repairPivot(int p)
    {
        for (int q = p + 1; q < 4; ++q) {
            if (canRepairPivot(q, p)) {
                addRow(p, q, 1.0);
                return true;
            }
        }
        return false;
    }

    bool eliminate()
    {
        for (int p = 0; p < 4; ++p) {
            for (int row = 0; row < 4; ++row) {
                if (row == p) {
                    continue;
                }
                if (m[p][p] == 0.0 && !repairPivot(p)) {
                    return false;
                }
                double const factor = -(m[row][p] / m[p][p]);
                if (factor > 1e-9 || -1e-9 > factor) {
                    addRow(row, p, factor);
                }
            }
        }
        return true;
    }

    void normalise()
    {
        for (int i = 0; i < 4; ++i) {
            if (m[i][i] != 1.0) {
                double const scale = 1.0 / m[i][i];
                for (int k = 0; k < 4; ++k) {
                    m[i][k] = snapped(m[i][k] * scale);
                    inverse[i][k] = snapped(inverse[i][k] * scale);
                }
            }
        }
    }
};

} // namespace

bool Math3DInvertMatrix(double (*const m)[4])
{
    Elimination work{m};
    if (!work.repairDiagonal() || !work.eliminate()) {
        return false;
    }
    work.normalise();
    std::memcpy(m, work.inverse, sizeof work.inverse);
    return true;
}
