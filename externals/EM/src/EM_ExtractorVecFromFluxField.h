#ifndef EM_ExtractorVecFromFluxFieldH
#define EM_ExtractorVecFromFluxFieldH

#include <memory>

#include "EM_ExtractorVecOutputBase.h"

namespace EM {

/*! Extracts the vector field of a flux output of a 2D geometry at one time point (TimeCut).

	The container holds one flux per side. A side whose normal points along the first space
	dimension (X) gives the X component, one along the second (Y) the Y component; the flux is
	counted positive in the direction of increasing coordinate (the sign follows from where its
	elements lie, as a flux counts positive from its first to its second element). Each element
	next to a listed side gets, per component, the mean of the fluxes of its listed sides of that
	orientation (0 when it has none). The vectors sit at the element centres on the grid of these
	elements; grid points without an element hold NaN.
*/
class ExtractorVecFromFluxField : public ExtractorVecOutputBase {
public:
	/*! The geometry, when given, replaces the container's embedded one. */
	explicit ExtractorVecFromFluxField(DATAIO::DataIO * dataIO, std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr);

	/*! The common checks of vector outputs, then a flux output of data format 4D with geometry. */
	bool canUpdate() override;

protected:
	void doUpdate() override;

private:
	/*! Extracts the field into m_x, m_y, m_vx and m_vy. */
	void extract();
};

} // namespace EM

#endif // EM_ExtractorVecFromFluxFieldH
