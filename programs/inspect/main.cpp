#include "InputError.h"
#include "commands.h"

#include <exception>
#include <iostream>
#include <new>

int main(int argc, char **argv)
{
    CLI::App app("Tells what a mesh is like: measures, convex hull, pictures.", "orvel-inspect");
    app.require_subcommand(0, 1);
    addHullCommand(app);
    addVolumeCommand(app);
    addCompareCommand(app);
    try {
        app.parse(argc, argv);
        return 0;
    } catch (CLI::CallForHelp const &help) {
        return app.exit(help);
    } catch (CLI::ParseError const &error) {
        std::cerr << "orvel-inspect: " << error.what() << '\n';
    } catch (InputError const &error) {
        std::cerr << "orvel-inspect: " << error.what() << '\n';
    } catch (std::bad_alloc const &) {
        std::cerr << "orvel-inspect: not enough memory\n";
    } catch (std::exception const &error) {
        std::cerr << "orvel-inspect: " << error.what() << '\n';
    }
    return 2;
}
