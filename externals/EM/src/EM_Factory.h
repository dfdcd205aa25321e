#ifndef EM_FactoryH
#define EM_FactoryH

#include <memory>
#include <string>
#include <vector>

namespace EM {

class ManipulatorBase;
class ModelTwo2DBase;

/*! Creates manipulators and models from the type keywords under which they are stored
	("2DScaling", "VTTMouldModel", ...), with default parameters.
*/
class Factory {
public:
	/*! The manipulator of the given type keyword; null for an unknown keyword. */
	static std::unique_ptr<ManipulatorBase> createManipulator(const std::string & typeKeyword);
	/*! The model of the given type keyword; null for an unknown keyword. */
	static std::unique_ptr<ModelTwo2DBase> createModel(const std::string & typeKeyword);

	/*! All manipulator type keywords, in the order of the manipulator kinds. */
	static std::vector<std::string> manipulatorTypeKeywords();
	/*! All model type keywords. */
	static std::vector<std::string> modelTypeKeywords();
};

} // namespace EM

#endif // EM_FactoryH
