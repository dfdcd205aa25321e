#ifndef EM_Extractor2DFrom2DH
#define EM_Extractor2DFrom2DH

#include "EM_Extractor2DOutputBase.h"

namespace EM {

/*! Extracts the time series of a 2D container (one value per time point) as it stands: the
	time points as x values, the first value of each time point as y value.
*/
class Extractor2DFrom2D : public Extractor2DOutputBase {
public:
	explicit Extractor2DFrom2D(DATAIO::DataIO * dataIO);

	/*! The common checks, then the data format 2D and a time unit as target x unit. */
	bool canUpdate() override;

protected:
	void doUpdate() override;
};

} // namespace EM

#endif // EM_Extractor2DFrom2DH
