#include "CommandLine.h"
#include "Interrupt.h"
#include "commands.h"

#include <map>

namespace {

constexpr char const *footer =
    "Lengths are in the units of the file, areas in squared and volumes in cubed ones. The\n"
    "coordinates that Assimp gives are of single precision: 7 digits. Vertices are joined where\n"
    "they are equal to the last bit.\n"
    "\n"
    "  closed           each edge is run along as often forwards as backwards\n"
    "  volume           signed; only of a closed mesh, exact but for rounding (1e-15)\n"
    "  centroid         of the solid where closed, else of the surface, else of the points\n"
    "  principal axes   of the surface (or the points), by falling spread\n"
    "  Euler number     vertices less edges plus triangles\n"
    "  genus            handles of all components together; only of a closed manifold\n"
    "  degenerate       height below 1e-12 of the longest side\n"
    "  thinnest         smallest height over longest side; 0.866 is an equilateral triangle\n"
    "  hull             exact: all corners and no other; area and volume to 1e-14\n"
    "  oriented box     a side lies in one of the 32 largest faces of the hull\n"
    "\n"
    "Exit codes: 0 all is well, 1 some meshes failed, 2 wrong use or a result that can't be\n"
    "written, 130 interrupted.";

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Tells what meshes are like: measures, convex hull, volume, pictures",
                 "orvel-inspect");
    app.footer(footer);
    app.require_subcommand(0, 1);
    addStandardOptions(app);
    std::map<CLI::App const *, Work> works;
    works[&app] = addMeshCommand(app);
    CLI::App *const volume =
        app.add_subcommand("volume", "The volume that a closed mesh occupies, as a tree of cells");
    works[volume] = addVolumeCommand(*volume);
    CLI::App *const compare =
        app.add_subcommand("compare", "What the volumes of two closed meshes have in common");
    works[compare] = addCompareCommand(*compare);
    CLI::App *const bits =
        app.add_subcommand("bits", "What a file of bits holds that `volume --bits` wrote");
    works[bits] = addBitsCommand(*bits);
    return runProgram(app, argc, argv, [&] {
        installInterrupt();
        auto const asked = app.get_subcommands();
        return works[asked.empty() ? &app : asked.front()]();
    });
}
