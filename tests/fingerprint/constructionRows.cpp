#include "fingerprint/Rows.h"

#include <OrvelMath/geom2d/construct2d.h>

namespace fingerprint {

std::vector<Row> constructionRows()
{
    return {
        own("mat_round_to_grid", mat_round_to_grid),
        own("intersect_line_circle", intersect_line_circle),
        withLibrary("intersect_circle_circle", intersect_circle_circle),
        own("projektion_punkt_auf_linie", projektion_punkt_auf_linie),
        withLibrary("projektion_punkt_auf_kreis", projektion_punkt_auf_kreis),
        withLibrary("mat_vektor_winkel", mat_vektor_winkel),
        withLibrary("tangente_punkt_kreis", tangente_punkt_kreis),
        withLibrary("tangente_kreis_kreis", tangente_kreis_kreis),
        own("apolloniusCCC", apolloniusCCC, {100000, true, false}),
        withLibrary("fillet_line_line", fillet_line_line),
        withLibrary("fillet_kreis_kreis", fillet_kreis_kreis),
        withLibrary("fillet_line_circle", fillet_line_circle),
        withLibrary("arc_line1end_to_line2anf", arc_line1end_to_line2anf),
        withLibrary("adjust_arc_m2pnt", adjust_arc_m2pnt),
        withLibrary("mat_bounding_box_of_arc_m2pnt", mat_bounding_box_of_arc_m2pnt),
    };
}

} // namespace fingerprint
