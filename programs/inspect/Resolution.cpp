#include "Resolution.h"

#include "errors.h"

#include <algorithm>

void Resolution::addTo(CLI::App &command)
{
    m_size = command
                 .add_option("--resolution", size,
                             "Smallest half extent of a cell that is still split, in units of the "
                             "mesh; cells have edges from this up to below twice it")
                 ->type_name("LENGTH");
    command.add_option("--cells", cells, "Resolution as a part of the longest extent")
        ->capture_default_str()
        ->type_name("COUNT")
        ->excludes(m_size);
}

double Resolution::sizeFor(Box const &content) const
{
    if (m_size->count() > 0) {
        return size;
    }
    if (cells < 2) {
        throw UsageError("--cells: at least 2");
    }
    Vector const extent = content.second - content.first;
    return std::max({extent.x(), extent.y(), extent.z()}) / double(cells);
}
