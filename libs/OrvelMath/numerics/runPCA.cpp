#include <OrvelMath/numerics/JacobiMethod.h>
#include <OrvelMath/numerics/MatrixNXN.h>
#include <OrvelMath/numerics/runPCA.h>

#include <map>

namespace {

Point3D findMean(PValOrderedVector<Point3D> const &points)
{
    double x = 0.0, y = 0.0, z = 0.0;
    for (Point3D const &p : points) {
        x += p.x();
        y += p.y();
        z += p.z();
    }
    double const n = points.size();
    return Point3D(x / n, y / n, z / n);
}

void fillCovariance(SymmetricMatrixNXN &covariance, PValOrderedVector<Point3D> const &points,
                    Point3D const &mean)
{
    double const mx = mean.x(), my = mean.y(), mz = mean.z();
    double xx = 0.0, yy = 0.0, zz = 0.0, xy = 0.0, xz = 0.0, yz = 0.0;
    for (Point3D const &p : points) {
        double const dx = p.x() - mx;
        double const dy = p.y() - my;
        double const dz = p.z() - mz;
        xx += dx * dx;
        yy += dy * dy;
        zz += dz * dz;
        xy += dy * dx;
        xz += dz * dx;
        yz += dy * dz;
    }
    double const divisor = points.size() - 1;
    covariance.setElement(0, 0, xx / divisor);
    covariance.setElement(0, 1, xy / divisor);
    covariance.setElement(0, 2, xz / divisor);
    covariance.setElement(1, 1, yy / divisor);
    covariance.setElement(1, 2, yz / divisor);
    covariance.setElement(2, 2, zz / divisor);
}

} // namespace

void runPCA(double &value1, double &centerX, Point3D &axis1, double &value2, double &centerY,
            Point3D &axis2, double &value3, double &centerZ, Point3D &axis3,
            PValOrderedVector<Point3D> const &points)
{
    if (points.size() < 3) {
        return;
    }
    Point3D const mean = findMean(points);
    centerX = mean.x();
    centerY = mean.y();
    centerZ = mean.z();

    SymmetricMatrixNXN covariance(3);
    fillCovariance(covariance, points, mean);
    JacobiMethod method(&covariance);
    while (!method.iterate()) {
    }

    // Ascending; of equal eigenvalues the later column comes later.
    std::multimap<double, Point3D> pairs;
    for (unsigned int column = 0; column < 3; ++column) {
        PValOrderedVector<double> v;
        method.getEigenvector(column, v);
        pairs.emplace(method.getEigenvalue(column), Point3D(v[0], v[1], v[2]));
    }
    auto pair = pairs.begin();
    value3 = pair->first;
    axis3 = pair->second;
    ++pair;
    value2 = pair->first;
    axis2 = pair->second;
    ++pair;
    value1 = pair->first;
    axis1 = pair->second;
}
