#ifndef EM_ExtractorFactoryH
#define EM_ExtractorFactoryH

#include <cstdint>
#include <memory>
#include <vector>

#include <DATAIO_DataIO.h>

#include "EM_CutType.h"
#include "EM_ExtractorBase.h"

namespace DATAIO {
class GeoFile;
}

namespace EM {

class ExtractorBase;
class ModelTwo2DBase;

/*! Creates the extractor that fits a container's data format and a cut type:

	| data format | cut types | extractor |
	|---|---|---|
	| DF_2D | NoCut | Extractor2DFrom2D; Extractor2DFromReference for reference outputs |
	| DF_3D | NoCut | Extractor3DFrom3D |
	| DF_3D | XCut, TimeCut | Extractor2DFrom3D |
	| DF_4D | TimeCut, XCut, YCut | Extractor3DFrom4D; ExtractorVecFromFluxField for fluxes (TimeCut only) |
	| DF_4D | XYCut, XTCut, YTCut | Extractor2DFrom4D |
	| DF_5D | XYCut, XZCut, YZCut, XTCut, YTCut, ZTCut | Extractor3DFrom5D |
	| DF_5D | XYZCut, XYTCut, XZTCut, YZTCut | Extractor2DFrom5D |

	Flux outputs of 4D data give only the vector field; those of 5D data have no extractor. The
	created extractor's target units are the container's own (time unit or metres for the
	axes, value unit), so that it can update at once; the caller may change them.
*/
class ExtractorFactory {
public:
	/*! The cut types that have an extractor for a container of this data format and output
		type, in the order of the enumeration.
	*/
	static std::vector<CutType> validCutTypes(DATAIO::DataIO::DataFormat format, DATAIO::DataIO::OutputType type);
	/*! The valid cut types whose extractor has the given kind of output (the cut types a chart
		of that kind can switch between), in the order of the enumeration.
	*/
	static std::vector<CutType> validCutTypes(DATAIO::DataIO::DataFormat format, DATAIO::DataIO::OutputType type,
											  ExtractorBase::OutputKind kind);

	/*! Creates the extractor of a container for a cut type. The geometry, when given, replaces
		the container's embedded one; column is the column number (as the header lists it) of
		a reference output and unused otherwise. Throws "Cut type '%1' is not valid for data
		format '%2'." for a combination without extractor.
	*/
	static std::unique_ptr<ExtractorBase> createExtractor(DATAIO::DataIO * dataIO, CutType cutType,
		std::shared_ptr<const DATAIO::GeoFile> geometry = nullptr, std::uint32_t column = 0);

	/*! Creates the extractor of a model computed from two 2D containers with one value per time
		point; its target units are the model's.
	*/
	static std::unique_ptr<ExtractorBase> createExtractor(DATAIO::DataIO * first, DATAIO::DataIO * second,
		std::unique_ptr<ModelTwo2DBase> model);
	/*! Creates the extractor of a model computed from a column of each of two 2D containers
		(column numbers as the headers list them, ModelTwo2DBase::SINGLE_VALUE for a container with
		one value per time point; the same container may be given twice); its target units are
		the model's.
	*/
	static std::unique_ptr<ExtractorBase> createExtractor(DATAIO::DataIO * first, std::uint32_t firstColumn,
		DATAIO::DataIO * second, std::uint32_t secondColumn, std::unique_ptr<ModelTwo2DBase> model);

private:
	/*! Sets the target units of a new single-container extractor to the units the container
		gives (a reference column's own value unit); units with unknown names stay unset.
	*/
	static void setContainerUnits(ExtractorBase & extractor);
};

} // namespace EM

#endif // EM_ExtractorFactoryH
