#include "EM_ExtractorFactory.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitList.h>

#include "EM_Extractor2DFrom2D.h"
#include "EM_Extractor2DFrom3D.h"
#include "EM_Extractor2DFrom4D.h"
#include "EM_Extractor2DFrom5D.h"
#include "EM_Extractor2DFromReference.h"
#include "EM_Extractor2DFromTwo2D.h"
#include "EM_Extractor3DFrom3D.h"
#include "EM_Extractor3DFrom4D.h"
#include "EM_Extractor3DFrom5D.h"
#include "EM_ExtractorVecFromFluxField.h"
#include "EM_FieldCut.h"
#include "EM_ModelTwo2DBase.h"

namespace EM {

namespace {

/*! The kinds of extractor the factory chooses from. */
enum Kind {
	K_None,
	K_2D,
	K_3D,
	K_Vector
};

/*! The kind of extractor for a data format, output type and cut type. */
Kind extractorKind(DATAIO::DataIO::DataFormat format, DATAIO::DataIO::OutputType type, CutType cutType) {
	if (cutType >= NUM_CT)
		return K_None;
	if (format == DATAIO::DataIO::DF_2D)
		return cutType == CT_NoCut ? K_2D : K_None;
	const unsigned int spaceCount = FieldCut::spaceDimensionCount(format);
	if (spaceCount == 0)
		return K_None;
	for (unsigned int d = spaceCount; d < CD_Time; ++d)
		if (CutTypes::isCut(cutType, d))
			return K_None;
	const unsigned int freeCount = spaceCount + 1 - CutTypes::cutCount(cutType);
	if (type == DATAIO::DataIO::T_FLUX && format != DATAIO::DataIO::DF_3D)
		return format == DATAIO::DataIO::DF_4D && cutType == CT_TimeCut ? K_Vector : K_None;
	if (freeCount == 1)
		return K_2D;
	return freeCount == 2 ? K_3D : K_None;
}

/*! The unit of a name, or the undefined unit for an unknown name. */
ZEB::Unit unitOrUndefined(const std::string & name) {
	const ZEB::UnitData * data = ZEB::UnitList::instance().retrieve(name);
	return data == nullptr ? ZEB::Unit() : ZEB::Unit(data->id());
}

} // namespace


std::vector<CutType> ExtractorFactory::validCutTypes(DATAIO::DataIO::DataFormat format, DATAIO::DataIO::OutputType type) {
	std::vector<CutType> cutTypes;
	for (int c = 0; c < NUM_CT; ++c)
		if (extractorKind(format, type, static_cast<CutType>(c)) != K_None)
			cutTypes.push_back(static_cast<CutType>(c));
	return cutTypes;
}


std::vector<CutType> ExtractorFactory::validCutTypes(DATAIO::DataIO::DataFormat format, DATAIO::DataIO::OutputType type,
													 ExtractorBase::OutputKind kind)
{
	const Kind wanted = kind == ExtractorBase::OK_2D ? K_2D : (kind == ExtractorBase::OK_3D ? K_3D : K_Vector);
	std::vector<CutType> cutTypes;
	for (CutType c : validCutTypes(format, type))
		if (extractorKind(format, type, c) == wanted)
			cutTypes.push_back(c);
	return cutTypes;
}


std::unique_ptr<ExtractorBase> ExtractorFactory::createExtractor(DATAIO::DataIO * dataIO, CutType cutType,
	std::shared_ptr<const DATAIO::GeoFile> geometry, std::uint32_t column)
{
	FUNCID(ExtractorFactory::createExtractor);
	if (dataIO == nullptr)
		throw ZEB::Exception("Invalid DataIO container (null pointer).", FUNC_ID);
	const DATAIO::DataIO::DataFormat format = dataIO->dataFormat();
	const Kind kind = extractorKind(format, dataIO->type(), cutType);
	if (kind == K_None)
		throw ZEB::Exception(ZEB::MessageFormat("Cut type '%1' is not valid for data format '%2'.")
							 .arg(CutTypes::keyword(cutType)).arg(DATAIO::DataIO::dataFormatText(format)), FUNC_ID);
	std::unique_ptr<ExtractorBase> extractor;
	switch (format) {
		case DATAIO::DataIO::DF_2D :
			if (dataIO->type() == DATAIO::DataIO::T_REFERENCE)
				extractor.reset(new Extractor2DFromReference(dataIO, column));
			else
				extractor.reset(new Extractor2DFrom2D(dataIO));
			break;
		case DATAIO::DataIO::DF_3D :
			if (kind == K_2D)
				extractor.reset(new Extractor2DFrom3D(dataIO, cutType, geometry));
			else
				extractor.reset(new Extractor3DFrom3D(dataIO, cutType, geometry));
			break;
		case DATAIO::DataIO::DF_4D :
			if (kind == K_Vector)
				extractor.reset(new ExtractorVecFromFluxField(dataIO, geometry));
			else if (kind == K_2D)
				extractor.reset(new Extractor2DFrom4D(dataIO, cutType, geometry));
			else
				extractor.reset(new Extractor3DFrom4D(dataIO, cutType, geometry));
			break;
		default :
			if (kind == K_2D)
				extractor.reset(new Extractor2DFrom5D(dataIO, cutType, geometry));
			else
				extractor.reset(new Extractor3DFrom5D(dataIO, cutType, geometry));
	}
	setContainerUnits(*extractor);
	return extractor;
}


std::unique_ptr<ExtractorBase> ExtractorFactory::createExtractor(DATAIO::DataIO * first, DATAIO::DataIO * second,
	std::unique_ptr<ModelTwo2DBase> model)
{
	return createExtractor(first, ModelTwo2DBase::SINGLE_VALUE, second, ModelTwo2DBase::SINGLE_VALUE, std::move(model));
}


std::unique_ptr<ExtractorBase> ExtractorFactory::createExtractor(DATAIO::DataIO * first, std::uint32_t firstColumn,
	DATAIO::DataIO * second, std::uint32_t secondColumn, std::unique_ptr<ModelTwo2DBase> model)
{
	const std::vector<DATAIO::DataIO *> dataIOs = { first, second };
	std::unique_ptr<Extractor2DFromTwo2D> extractor(new Extractor2DFromTwo2D(dataIOs, std::move(model),
																			 { firstColumn, secondColumn }));
	// the model's units: its time axis and its result
	extractor->setTargetXUnit(extractor->axisUnitFromDataIO(0));
	extractor->setTargetValueUnit(extractor->axisUnitFromDataIO(1));
	return std::unique_ptr<ExtractorBase>(std::move(extractor));
}


void ExtractorFactory::setContainerUnits(ExtractorBase & extractor) {
	const DATAIO::DataIO & dataIO = *extractor.dataIOs().front();
	extractor.setTargetValueUnit(unitOrUndefined(extractor.valueUnitName(0)));
	const ZEB::Unit time = unitOrUndefined(dataIO.timeUnit());
	const ZEB::Unit metres("m");
	switch (extractor.outputKind()) {
		case ExtractorBase::OK_2D :
			extractor.setTargetXUnit(static_cast<const Extractor2DOutputBase &>(extractor).xDimension() == CD_Time ? time : metres);
			break;
		case ExtractorBase::OK_3D : {
			const Extractor3DOutputBase & e3D = static_cast<const Extractor3DOutputBase &>(extractor);
			extractor.setTargetXUnit(e3D.xDimension() == CD_Time ? time : metres);
			extractor.setTargetYUnit(e3D.yDimension() == CD_Time ? time : metres);
		} break;
		case ExtractorBase::OK_Vector :
			extractor.setTargetXUnit(metres);
			extractor.setTargetYUnit(metres);
			break;
	}
}

} // namespace EM
