#include "meshFacts.h"

#include "MassProperties.h"
#include "Measure.h"
#include "Spacing.h"
#include "Topology.h"

#include <QtCore/QJsonArray>

#include <cmath>

namespace {

std::vector<double> listed(Vector const &v)
{
    return {v.x(), v.y(), v.z()};
}

std::string power(std::string const &unit, char const *exponent)
{
    return unit.empty() ? unit : unit + exponent;
}

// A number that this mesh doesn't have: null for programs, a reason for a person.
Fact missing(std::string const &key, std::string const &label, std::string const &why)
{
    return {key, label, QJsonValue(), why};
}

Fact axesFact(std::string const &key, std::string const &label, matrixC3x3<double> const &axes)
{
    QJsonArray rows;
    std::string text;
    for (int k = 0; k < 3; ++k) {
        Fact const axis = numbersFact("", "", listed(axes.axis(k)));
        rows.append(axis.value);
        text += (k > 0 ? "; " : "") + axis.text;
    }
    return {key, label, rows, text};
}

void addSize(Facts &facts, Mesh const &mesh)
{
    facts.push_back(countFact("vertices", "vertices", mesh.vertices.size()));
    facts.push_back(countFact("triangles", "triangles", mesh.triangles.size()));
    facts.push_back(numbersFact("extents", "extents", listed(mesh.extent()), " x ", mesh.unit));
    facts.push_back(numbersFact("lowest", "lowest corner", listed(mesh.lowest)));
    facts.push_back(numbersFact("highest", "highest corner", listed(mesh.highest)));
    facts.push_back({"unit", "unit",
                     mesh.unit.empty() ? QJsonValue() : QString::fromStdString(mesh.unit),
                     mesh.unit.empty() ? "not in the file" : mesh.unit});
    facts.push_back(textFact("up", "axis upwards", std::string(1, "xyz"[mesh.up])));
}

void addTopology(Facts &facts, Mesh const &mesh, Topology const &topology)
{
    facts.push_back({"closed", "closed", topology.isClosed, topology.closedText()});
    facts.push_back({"openEdges", "open edges", double(topology.openEdges), ""});
    facts.push_back(
        {"nonManifoldEdges", "non-manifold edges", double(topology.nonManifoldEdges), ""});
    facts.push_back({"flippedEdges", "flipped edges", double(topology.flippedEdges), ""});
    facts.push_back(
        countFact("duplicateTriangles", "duplicate triangles", topology.duplicateTriangles));
    facts.push_back(
        countFact("degenerateTriangles", "degenerate triangles", topology.degenerateTriangles));
    facts.push_back(countFact("components", "components", topology.components));
    facts.push_back({"euler", "Euler number", double(topology.euler(mesh)),
                     std::to_string(topology.euler(mesh))});
    long const genus = topology.genus(mesh);
    facts.push_back(genus >= 0 ? countFact("genus", "genus", std::size_t(genus))
                               : missing("genus", "genus", "none: not a closed manifold"));
}

void addMass(Facts &facts, Mesh const &mesh, Topology const &topology, MassProperties const &mass)
{
    facts.push_back(numberFact("area", "area", mass.area, power(mesh.unit, "²")));
    if (topology.isClosed) {
        facts.push_back(numberFact("volume", "volume", mass.volume, power(mesh.unit, "³")));
    } else {
        facts.push_back(missing("volume", "volume", "none: not closed"));
    }
    facts.push_back(numbersFact("centroid", "centroid", listed(mass.centroid)));
    facts.push_back(axesFact("principalAxes", "principal axes", mass.axes));
    facts.push_back(numbersFact("principalSpreads", "spreads along them", listed(mass.spreads)));
    if (mass.thinnestTriangle >= 0) {
        Fact fact = numberFact("thinnest", "thinnest triangle", mass.thinnest);
        fact.text += ", number " + std::to_string(mass.thinnestTriangle);
        facts.push_back(fact);
        facts.push_back({"thinnestTriangle", "its number", mass.thinnestTriangle, ""});
    }
}

void addBox(Facts &facts, Mesh const &mesh, OrientedBox const &box)
{
    facts.push_back(
        numbersFact("orientedBox", "oriented box", listed(box.extent), " x ", mesh.unit));
    facts.push_back(
        {"orientedBoxCentre", "its centre", numbersFact("", "", listed(box.centre)).value, ""});
    facts.push_back({"orientedBoxAxes", "its axes", axesFact("", "", box.axes).value, ""});
}

std::string dimensionText(int dimension)
{
    static char const *const texts[] = {"0 (one location)", "1 (a line)", "2 (a plane)",
                                        "3 (a solid)"};
    return texts[dimension];
}

void addHull(Facts &facts, Mesh const &mesh, Hull const &hull, double seconds)
{
    facts.push_back(
        {"hullDimension", "hull dimension", hull.dimension, dimensionText(hull.dimension)});
    if (hull.dimension >= 2) {
        facts.push_back(countFact("hullVertices", "hull vertices", hull.vertexIndices.size()));
        facts.push_back(countFact("hullTriangles", "hull triangles", hull.triangles.size()));
        facts.push_back(numberFact("hullArea", "hull area", hull.area, power(mesh.unit, "²")));
    }
    if (hull.dimension == 3) {
        facts.push_back(
            numberFact("hullVolume", "hull volume", hull.volume, power(mesh.unit, "³")));
    }
    std::string const difference = differenceOf(hull, plainHullOf(mesh));
    if (!difference.empty()) {
        facts.push_back(textFact("hullBuilder", "ConvexHullBuilderC alone", difference));
    }
    facts.push_back({"hullSeconds", "hull time", seconds, timeText(seconds)});
}

} // namespace

Findings findingsOf(Mesh const &mesh, std::string const &nearest, Progress &progress, double end)
{
    Findings found;
    Facts &facts = found.facts;
    addSize(facts, mesh);
    progress.stage("measuring", 0.5 * end);
    Topology const topology = topologyOf(mesh);
    MassProperties const mass = massPropertiesOf(mesh, topology.isClosed);
    addMass(facts, mesh, topology, mass);
    addTopology(facts, mesh, topology);

    progress.stage("building the hull", 0.7 * end);
    Stopwatch const watch;
    found.hull = hullOf(mesh);
    double const seconds = watch.seconds();
    addHull(facts, mesh, found.hull, seconds);
    found.box = orientedBoxOf(mesh, found.hull, mass.axes);
    addBox(facts, mesh, found.box);

    progress.stage("measuring distances", end);
    Spacings const spacings = vertexSpacings(mesh, progress);
    for (Facts const &more : {spacingFacts(spacings), nearestFacts(mesh, nearest)}) {
        facts.insert(facts.end(), more.begin(), more.end());
    }
    found.spacings = spacings.sorted;
    return found;
}
