#include <OrvelExact/measures/enclosing.h>

#include <OrvelExact/measures/vectors_p.h>

namespace orvelExact {

namespace {

constexpr double farthestCoordinate = 1e270;
constexpr double outside = 0x1p-80; // by how much of its square a distance must exceed the radius

Point3 high(Vector3 const &v)
{
    return {v.x.high, v.y.high, v.z.high};
}
Point3 inSpace(Point2 const &p)
{
    return {p.x(), p.y(), 0.0};
}
Point3 const &inSpace(Point3 const &p)
{
    return p;
}

/// A ball and the points that determine it, at most four.
struct Ball
{
    Vector3 centre;
    DoubleDouble square; ///< of the radius
    int count = 0;
    int support[4];
};

/// The points seen from the first one, by a power of two that makes them of unit size.
template <typename Point>
class Cloud
{
public:
    Cloud(QVector<Point> const &points, int exponent)
        : m_points(points)
        , m_exponent(exponent)
    {
    }

    int size() const { return m_points.size(); }
    Vector3 operator[](int i) const
    {
        Vector3 const way = differenceOf(inSpace(m_points[i]), inSpace(m_points[0]));
        return {timesPowerOfTwo(way.x, -m_exponent), timesPowerOfTwo(way.y, -m_exponent),
                timesPowerOfTwo(way.z, -m_exponent)};
    }
    DoubleDouble squareFrom(Vector3 const &centre, int i) const
    {
        Vector3 const way = (*this)[i] - centre;
        return dotOf(way, way);
    }
    /// The farthest point, the first of several. Doubles find out which points come into question.
    int farthestFrom(Vector3 const &centre) const
    {
        Point3 const about = high(centre);
        Point3 const origin = inSpace(m_points[0]);
        double const factor = timesPowerOfTwo(1.0, -m_exponent);
        auto const roughSquare = [&](int i) {
            return ((inSpace(m_points[i]) - origin) * factor - about).squaredLength();
        };
        double largest = 0.0;
        for (int i = 0; i < m_points.size(); ++i) {
            largest = std::max(largest, roughSquare(i));
        }
        double const least = largest - 0x1p-46 * (1.0 + largest); // what doubles can't tell apart
        int best = -1;
        DoubleDouble bestSquare;
        for (int i = 0; i < m_points.size(); ++i) {
            if (roughSquare(i) >= least) {
                DoubleDouble const square = squareFrom(centre, i);
                if (best < 0 || bestSquare < square) {
                    best = i;
                    bestSquare = square;
                }
            }
        }
        return best;
    }

private:
    QVector<Point> const &m_points;
    int m_exponent;
};

constexpr double leastQuality = 0x1p-60;

/// The symmetric equations 2 (p_i - p_0) (centre - p_0) = |p_i - p_0|² for the centre of a ball
/// through up to four points, in the plane of the points.
class CentreEquations
{
public:
    template <typename Point>
    CentreEquations(Cloud<Point> const &cloud, Ball const &ball, int origin)
        : m_origin(cloud[ball.support[origin]])
    {
        for (int i = 0; i < ball.count; ++i) {
            if (i != origin) {
                m_edges[m_count++] = cloud[ball.support[i]] - m_origin;
            }
        }
        for (int i = 0; i < m_count; ++i) {
            for (int k = 0; k < m_count; ++k) {
                m_rows[i][k] = dotOf(m_edges[i], m_edges[k]);
            }
            m_rows[i][3] = scaled(m_rows[i][i], 0.5);
        }
        eliminate();
    }

    /// How much elimination leaves of the diagonal: 1 for edges at right angles, 0 for edges that
    /// don't span a ball.
    double quality() const { return m_quality; }
    void placeCentre(Ball &ball) const
    {
        Vector3 way;
        for (int i = 0; i < m_count; ++i) {
            way = way + m_edges[i] * (m_rows[i][3] / m_rows[i][i]);
        }
        ball.centre = m_origin + way;
        ball.square = dotOf(way, way);
    }

private:
    void eliminate()
    {
        double whole[3];
        for (int i = 0; i < m_count; ++i) {
            whole[i] = m_rows[i][i].high;
        }
        for (int i = 0; i < m_count; ++i) {
            m_quality *= m_rows[i][i].high / whole[i];
            if (!(m_quality > leastQuality)) {
                m_quality = 0.0;
                return;
            }
            for (int row = 0; row < m_count; ++row) {
                DoubleDouble const part = row == i ? DoubleDouble() : m_rows[row][i] / m_rows[i][i];
                for (int k = i; k < 4; ++k) {
                    m_rows[row][k] = m_rows[row][k] - part * m_rows[i][k];
                }
            }
        }
    }

    Vector3 m_origin;
    Vector3 m_edges[3];
    DoubleDouble m_rows[3][4];
    int m_count = 0;
    double m_quality = 1.0;
};

/// The smallest ball with all of its support on its boundary, from the point that makes the
/// equations best.
/// @return the quality of the equations, 0 if there is no ball
template <typename Point>
double placeThrough(Cloud<Point> const &cloud, Ball &ball)
{
    double best = 0.0;
    for (int origin = 0; origin < ball.count; ++origin) {
        CentreEquations const equations(cloud, ball, origin);
        if (equations.quality() > best) {
            best = equations.quality();
            equations.placeCentre(ball);
        }
    }
    return best;
}

/// The smallest ball around the support of a ball and one more point, which is on its boundary: the
/// smallest of the balls through that point and some of the support that hold the others.
template <typename Point>
Ball grownBy(Cloud<Point> const &cloud, Ball const &ball, int added)
{
    Ball best;
    best.square = 1e300;
    for (int mask = 1; mask < 1 << ball.count; ++mask) {
        Ball candidate;
        candidate.support[candidate.count++] = added;
        for (int i = 0; i < ball.count && candidate.count < 4; ++i) {
            if ((mask >> i & 1) != 0) {
                candidate.support[candidate.count++] = ball.support[i];
            }
        }
        double const quality = placeThrough(cloud, candidate);
        if (quality == 0.0 || !(candidate.square < best.square)) {
            continue;
        }
        DoubleDouble const limit =
            candidate.square * (DoubleDouble(1.0) + outside + 0x1p-98 / quality);
        bool holdsAll = true;
        for (int i = 0; i < ball.count; ++i) {
            holdsAll = holdsAll && !(limit < cloud.squareFrom(candidate.centre, ball.support[i]));
        }
        if (holdsAll) {
            best = candidate;
        }
    }
    return best;
}

template <typename Point>
Ball smallestBall(Cloud<Point> const &cloud)
{
    Ball ball;
    ball.centre = cloud[0];
    ball.count = 1;
    ball.support[0] = 0;
    for (;;) {
        int const farthest = cloud.farthestFrom(ball.centre);
        DoubleDouble const square = cloud.squareFrom(ball.centre, farthest);
        if (!(ball.square * (DoubleDouble(1.0) + outside) < square)) {
            return ball;
        }
        Ball const grown = grownBy(cloud, ball, farthest);
        if (grown.count == 0 || !(ball.square < grown.square)) { // nothing left but rounding
            return ball;
        }
        ball = grown;
    }
}

/// The status of the points, and the exponent of the largest difference from the first one.
template <typename Point>
Status measure(QVector<Point> const &points, int &exponent)
{
    if (points.isEmpty()) {
        return Status::Empty;
    }
    double size = 0.0;
    bool isInRange = true;
    for (Point const &p : points) {
        if (!isFinite(p)) {
            return Status::NotFinite;
        }
        isInRange = isInRange && largestOf(p) <= farthestCoordinate;
        size = std::max(size, largestOf(p - points[0]));
    }
    exponent = std::max(exponentOf(size), -1000); // its opposite is a double

    return isInRange ? Status::Ok : Status::OutOfRange;
}

/// Centre, radius and support of the smallest ball.
template <typename Point>
Status enclose(QVector<Point> const &points, Point3 &centre, double &radius, QVector<int> &support)
{
    int exponent = 0;
    Status const status = measure(points, exponent);
    if (status != Status::Ok) {
        return status;
    }
    Ball const ball = smallestBall(Cloud<Point>(points, exponent));
    Vector3 const way{timesPowerOfTwo(ball.centre.x, exponent),
                      timesPowerOfTwo(ball.centre.y, exponent),
                      timesPowerOfTwo(ball.centre.z, exponent)};
    centre = rounded(way + differenceOf(inSpace(points[0]), {}));
    radius = timesPowerOfTwo(rounded(squareRoot(ball.square)), exponent);
    for (int i = 0; i < ball.count; ++i) {
        support.append(ball.support[i]);
    }
    std::sort(support.begin(), support.end());
    return Status::Ok;
}

} // namespace

EnclosingCircle smallestCircle(QVector<Point2> const &points)
{
    EnclosingCircle result;
    Point3 centre;
    result.status = enclose(points, centre, result.radius, result.support);
    result.centre = {centre.x(), centre.y()};
    return result;
}

EnclosingSphere smallestSphere(QVector<Point3> const &points)
{
    EnclosingSphere result;
    result.status = enclose(points, result.centre, result.radius, result.support);
    return result;
}

} // namespace orvelExact
