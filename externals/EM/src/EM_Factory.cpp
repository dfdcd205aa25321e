#include "EM_Factory.h"

#include "EM_Manipulator2DDifference2First.h"
#include "EM_Manipulator2DOffset.h"
#include "EM_Manipulator2DScaling.h"
#include "EM_ModelTwo2DGregoriniAlgaeBrick.h"
#include "EM_ModelTwo2DIsopleth.h"
#include "EM_ModelTwo2DParametricFunction.h"
#include "EM_ModelTwo2DViitanenMould.h"
#include "EM_ModelTwo2DViitanenWoodDegradation.h"
#include "EM_ModelTwo2DWTAWoodDegradation.h"

namespace EM {

namespace {

/*! Model keywords, in the order createModel() tests them. */
const char * const MODEL_KEYWORDS[] = {
	"IsoplethModel",
	"VTTMouldModel",
	"VTTWoodDegradation",
	"WTAWoodDegradationModel",
	"AlgaeGrowModelBrick",
	"ParametricFunction"
};

} // namespace


std::unique_ptr<ManipulatorBase> Factory::createManipulator(const std::string & typeKeyword) {
	if (typeKeyword == ManipulatorBase::typeKeyword(ManipulatorBase::MT_2DScaling))
		return std::unique_ptr<ManipulatorBase>(new Manipulator2DScaling);
	if (typeKeyword == ManipulatorBase::typeKeyword(ManipulatorBase::MT_2DOffset))
		return std::unique_ptr<ManipulatorBase>(new Manipulator2DOffset);
	if (typeKeyword == ManipulatorBase::typeKeyword(ManipulatorBase::MT_2DDifference2First))
		return std::unique_ptr<ManipulatorBase>(new Manipulator2DDifference2First);
	return nullptr;
}


std::unique_ptr<ModelTwo2DBase> Factory::createModel(const std::string & typeKeyword) {
	if (typeKeyword == MODEL_KEYWORDS[0])
		return std::unique_ptr<ModelTwo2DBase>(new ModelTwo2DIsopleth);
	if (typeKeyword == MODEL_KEYWORDS[1])
		return std::unique_ptr<ModelTwo2DBase>(new ModelTwo2DViitanenMould);
	if (typeKeyword == MODEL_KEYWORDS[2])
		return std::unique_ptr<ModelTwo2DBase>(new ModelTwo2DViitanenWoodDegradation);
	if (typeKeyword == MODEL_KEYWORDS[3])
		return std::unique_ptr<ModelTwo2DBase>(new ModelTwo2DWTAWoodDegradation);
	if (typeKeyword == MODEL_KEYWORDS[4])
		return std::unique_ptr<ModelTwo2DBase>(new ModelTwo2DGregoriniAlgaeBrick);
	if (typeKeyword == MODEL_KEYWORDS[5])
		return std::unique_ptr<ModelTwo2DBase>(new ModelTwo2DParametricFunction);
	return nullptr;
}


std::vector<std::string> Factory::manipulatorTypeKeywords() {
	std::vector<std::string> keywords;
	for (int t = 0; t < ManipulatorBase::NUM_MT; ++t)
		keywords.push_back(ManipulatorBase::typeKeyword(static_cast<ManipulatorBase::ManipulatorType>(t)));
	return keywords;
}


std::vector<std::string> Factory::modelTypeKeywords() {
	return std::vector<std::string>(std::begin(MODEL_KEYWORDS), std::end(MODEL_KEYWORDS));
}

} // namespace EM
