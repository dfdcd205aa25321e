#ifndef Sci_PlotColorMapH
#define Sci_PlotColorMapH

class QwtColorMap;

namespace SCI {

class ColorMap;

/*! Turns the colour map of a chart model into a colour map of the plotting library, as used by
	colour grids, vector arrows and colour bars. Every user of the library's map needs an
	instance of its own, as the plot items and the colour bar take ownership.
*/
class PlotColorMap {
public:
	/*! A new library colour map for the model's colour map, owned by the caller.
		A linear map interpolates between its stops; a linear map without stops falls back to
		the default blue -> red map. An alpha map fades the alpha colour in from transparent.
	*/
	static QwtColorMap * create(const ColorMap & colorMap);
};

} // namespace SCI

#endif // Sci_PlotColorMapH
