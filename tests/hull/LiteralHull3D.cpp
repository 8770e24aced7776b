#include "LiteralHull.h"

#include <QtCore/QMap>

#include <algorithm>
#include <cmath>
#include <deque>

namespace {

using Vector = vectorC3d<double>;

struct Face;

struct Edge
{
    Face *face;
    Edge *twin;
    int tail;
    int head;
    Edge *next;
};

struct Face
{
    Edge *edges[3];
    int furthestPoint;
    double furthestDistance;
    std::vector<int> outside;
    Vector normal;
    bool alive;
};

template <typename T>
bool contains(std::vector<T> const &set, T const &element)
{
    return std::find(set.begin(), set.end(), element) != set.end();
}

bool less(Vector const &p, Vector const &q)
{
    for (int i = 0; i < 3; ++i) {
        if (p[i] < q[i]) {
            return true;
        }
        if (!(p[i] == q[i])) {
            return false;
        }
    }
    return false;
}

class Builder
{
public:
    explicit Builder(QList<Vector> const &points)
        : m_points(points)
    {
    }

    LiteralHull build()
    {
        LiteralHull hull;
        hull.dimension = initialSimplex();
        if (hull.dimension == 2) {
            planar(hull);
        } else if (hull.dimension == 3) {
            solid(hull);
        }
        for (Face const *face : m_faces) {
            hull.triangles.push_back(
                {{face->edges[0]->tail, face->edges[1]->tail, face->edges[2]->tail}, face->normal});
        }
        return hull;
    }

private:
    Edge *edge(int tail, int head)
    {
        m_edgePool.push_back({nullptr, nullptr, tail, head, nullptr});
        return &m_edgePool.back();
    }

    Vector normalOf(int a, int b, int c) const
    {
        Vector const n = (m_points[b] - m_points[a]).cross(m_points[c] - m_points[b]);
        return n * (1.0 / n.length());
    }

    Face *makeFace(Edge *a, Edge *b, Edge *c)
    {
        m_facePool.push_back({{a, b, c}, -1, 0.0, {}, normalOf(a->tail, a->head, b->head), true});
        Face *const face = &m_facePool.back();
        a->next = b;
        b->next = c;
        c->next = a;
        a->face = b->face = c->face = face;
        m_faces.push_back(face);
        return face;
    }

    Face *makeOriented(int a, int b, int c, int reference)
    {
        if ((m_points[reference] - m_points[a]).dot(normalOf(a, b, c)) > 0.0) {
            std::swap(b, c);
        }
        Edge *const ab = edge(a, b);
        Edge *const bc = edge(b, c);
        Edge *const ca = edge(c, a);
        return makeFace(ab, bc, ca);
    }

    bool addOutside(Face *face, int index) const
    {
        Vector const p = m_points[index];
        double const d = (p - m_points[face->edges[0]->tail]).dot(face->normal);
        if (!(d > 1e-8)) {
            return false;
        }
        face->outside.push_back(index);
        if (d > face->furthestDistance ||
            (d == face->furthestDistance && less(p, m_points[face->furthestPoint]))) {
            face->furthestDistance = d;
            face->furthestPoint = index;
        }
        return true;
    }

    int initialSimplex();
    void planar(LiteralHull &hull);
    void solid(LiteralHull &hull);
    bool collectHorizon(Face *face, int eye, std::vector<Edge *> &horizon,
                        std::vector<Face *> &removed) const;
    void expand(int eye, std::vector<Edge *> const &horizon, std::vector<Face *> const &removed,
                QMap<double, Face *> &queue);

    QList<Vector> m_points;
    std::vector<Face *> m_faces;
    std::deque<Face> m_facePool;
    std::deque<Edge> m_edgePool;
};

int Builder::initialSimplex()
{
    int const n = m_points.size();
    if (n == 0) {
        return -1;
    }
    int a = 0;
    int b = 0;
    for (int i = 1; i < n; ++i) {
        if (less(m_points[i], m_points[a])) {
            a = i;
        }
        if (less(m_points[b], m_points[i])) {
            b = i;
        }
    }
    Vector const pa = m_points[a];
    Vector const ab = m_points[b] - pa;
    if (ab.length() < 1e-8) {
        return 0;
    }

    Vector const u = ab / ab.length();
    double best = 0.0;
    int c = 0;
    Vector pc = pa;
    for (int i = 0; i < n; ++i) {
        Vector const w = pa - m_points[i];
        double const measure = (w + u * std::fabs(u.dot(w))).squaredLength();
        if (measure > best || (measure == best && less(m_points[i], pc))) {
            best = measure;
            c = i;
            pc = m_points[i];
        }
    }
    if (std::sqrt(best) < 1e-8) {
        return 1;
    }

    Vector normal = (m_points[c] - pa).cross(ab);
    normal = normal * (1.0 / normal.length());
    best = 0.0;
    int d = 0;
    Vector pd = pa;
    for (int i = 0; i < n; ++i) {
        double const measure = std::fabs((pa - m_points[i]).dot(normal));
        if (measure > best || (measure == best && less(m_points[i], pd))) {
            best = measure;
            d = i;
            pd = m_points[i];
        }
    }
    if (best < 1e-8) {
        makeOriented(a, b, c, d);
        return 2;
    }

    int const corners[4] = {a, b, c, d};
    int const faces[4][4] = {{0, 1, 2, 3}, {0, 3, 1, 2}, {0, 2, 3, 1}, {2, 1, 3, 0}};
    std::vector<std::pair<int, int>> ends;
    for (auto const &f : faces) {
        Face const *const face =
            makeOriented(corners[f[0]], corners[f[1]], corners[f[2]], corners[f[3]]);
        bool const kept =
            face->edges[0]->head == corners[f[1]] && face->edges[1]->head == corners[f[2]];
        int const order[3] = {f[0], kept ? f[1] : f[2], kept ? f[2] : f[1]};
        for (int i = 0; i < 3; ++i) {
            ends.push_back(std::minmax({order[i], order[(i + 1) % 3]}));
        }
    }
    for (std::size_t i = 0; i < 12; ++i) {
        for (std::size_t j = 0; j < 12; ++j) {
            if (i != j && ends[i] == ends[j]) {
                m_edgePool[i].twin = &m_edgePool[j];
            }
        }
    }
    for (int i = 0; i < n; ++i) {
        if (i != a && i != b && i != c && i != d) {
            for (Face *face : m_faces) {
                if (addOutside(face, i)) {
                    break;
                }
            }
        }
    }
    return 3;
}

void Builder::planar(LiteralHull &hull)
{
    Vector n = m_faces[0]->normal;
    m_faces.clear();
    Vector mean;
    for (Vector const &p : m_points) {
        mean = mean + p;
    }
    mean = mean / double(m_points.size());
    n = n * (1.0 / n.length());
    Vector u = n.cross(std::fabs(n.x()) > 0.7 ? Vector(0, 1, 0) : Vector(1, 0, 0));
    u = u * (1.0 / u.length());
    Vector v = n.cross(u);
    v = v * (1.0 / v.length());
    QVector<vectorC2d<double>> flat;
    for (Vector const &p : m_points) {
        flat.append({(p - mean).dot(u), (p - mean).dot(v)});
    }
    hull.indices = literalHull2D(flat);
    for (int i = 2; i < hull.indices.size(); ++i) {
        int const h0 = hull.indices[0];
        int const h1 = hull.indices[i - 1];
        int const h2 = hull.indices[i];
        makeFace(edge(h0, h1), edge(h1, h2), edge(h2, h0));
    }
}

void Builder::solid(LiteralHull &hull)
{
    QMap<double, Face *> queue;
    for (Face *face : m_faces) {
        queue.insert(face->furthestDistance, face);
    }
    while (!queue.isEmpty()) {
        Face *const face = queue.last();
        queue.erase(std::prev(queue.end()));
        if (!face->alive || face->furthestPoint < 0) {
            continue;
        }
        std::vector<Edge *> horizon;
        std::vector<Face *> removed;
        if (collectHorizon(face, face->furthestPoint, horizon, removed)) {
            expand(face->furthestPoint, horizon, removed, queue);
        }
    }

    m_faces.erase(std::remove_if(m_faces.begin(), m_faces.end(),
                                 [](Face const *face) { return !face->alive; }),
                  m_faces.end());
    std::vector<int> corners;
    for (Face const *face : m_faces) {
        for (Edge const *e : face->edges) {
            corners.push_back(e->tail);
        }
    }
    std::sort(corners.begin(), corners.end());
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (i == 0 || corners[i] != corners[i - 1]) {
            hull.indices.append(corners[i]);
        }
    }
}

bool Builder::collectHorizon(Face *first, int eye, std::vector<Edge *> &horizon,
                             std::vector<Face *> &removed) const
{
    std::vector<Face *> visible;
    std::vector<Face *> hidden;
    std::vector<Face *> stack{first};
    Edge *start = nullptr;
    double best = 100000.0;
    while (!stack.empty()) {
        Face *const g = stack.back();
        stack.pop_back();
        if (contains(visible, g)) {
            continue;
        }
        visible.push_back(g);
        for (Edge *e : g->edges) {
            Face *const k = e->twin->face;
            if (contains(visible, k)) {
                continue;
            }
            double const d = (m_points[eye] - m_points[k->edges[0]->tail]).dot(k->normal);
            if (d > -1e-8) {
                stack.push_back(k);
            } else if (!contains(hidden, k)) {
                hidden.push_back(k);
            }
            if (d < best) {
                best = d;
                start = e;
            }
        }
    }
    if (!start) {
        return false;
    }
    // Far more steps than there are edges: a walk that isn't back by then never comes back.
    std::size_t stepsLeft = 2 * m_edgePool.size() + 10;
    Edge *e = start;
    do {
        horizon.push_back(e);
        hidden.erase(std::remove(hidden.begin(), hidden.end(), e->twin->face), hidden.end());
        e = e->next;
        Edge *const anchor = e;
        std::size_t turnsLeft = 2 * m_edgePool.size() + 10;
        while (contains(visible, e->twin->face)) {
            e = e->twin->next;
            if (e == anchor) {
                break;
            }
            if (--turnsLeft == 0) {
                return false;
            }
        }
        if (--stepsLeft == 0) {
            return false;
        }
    } while (e != start);
    removed = visible;
    removed.insert(removed.end(), hidden.begin(), hidden.end());
    return true;
}

void Builder::expand(int eye, std::vector<Edge *> const &horizon,
                     std::vector<Face *> const &removed, QMap<double, Face *> &queue)
{
    std::vector<Face *> fresh;
    for (Edge *e : horizon) {
        int const t = e->tail;
        int const h = e->head;
        fresh.push_back(makeFace(e, edge(h, eye), edge(eye, t)));
    }
    for (std::size_t i = 0; i < fresh.size(); ++i) {
        Edge *const in = fresh[(i + 1) % fresh.size()]->edges[2];
        Edge *const out = fresh[i]->edges[1];
        in->twin = out;
        out->twin = in;
    }
    for (Face *face : removed) {
        for (int index : face->outside) {
            if (index == eye) {
                continue;
            }
            for (Face *candidate : fresh) {
                if (addOutside(candidate, index)) {
                    break;
                }
            }
        }
        face->alive = false;
        face->outside.clear();
    }
    for (Face *face : fresh) {
        queue.insert(face->furthestDistance, face);
    }
}

} // namespace

LiteralHull literalHull3D(QList<vectorC3d<double>> const &points)
{
    return Builder(points).build();
}
