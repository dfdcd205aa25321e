#ifndef EM_Extractor2DFromTwo2DH
#define EM_Extractor2DFromTwo2DH

#include <array>
#include <cstdint>
#include <memory>

#include "EM_Extractor2DOutputBase.h"

namespace EM {

class ModelTwo2DBase;

/*! Extracts the result series of a model (mould index, wood decay, ...) computed from two 2D
	containers, a temperature and a relative humidity series, each a container with one value
	per time point or one column of a reference collection. The extractor owns the model.

	The x values are the model's time axis (for the parametric function: the first input's
	values) in the model's units; the y values are the model's result in its value unit.
	Inputs that do not overlap in time give an empty series.
*/
class Extractor2DFromTwo2D : public Extractor2DOutputBase {
public:
	/*! The model's inputs are the first two containers, in order (the model needs exactly two,
		which canUpdate() checks), each read in its column: a column number of a reference
		collection as its header lists it, or ModelTwo2DBase::SINGLE_VALUE for a container with
		one value per time point. Throws when the model is null.
	*/
	Extractor2DFromTwo2D(const std::vector<DATAIO::DataIO *> & dataIOs, std::unique_ptr<ModelTwo2DBase> model,
						 const std::array<std::uint32_t, 2> & columns);
	~Extractor2DFromTwo2D() override;

	/*! The common checks without comparing the containers' value units with the target value
		unit (the model relates them), then exactly two containers and a target value unit of
		the model's result quantity.
	*/
	bool canUpdate() override;

	const ModelTwo2DBase & model() const { return *m_model; }
	ModelTwo2DBase & model() { return *m_model; }
	/*! The column read from input container 0 or 1 (see the constructor). */
	std::uint32_t column(std::size_t input) const { return m_columns[input]; }
	/*! The unit of the values read from an input: the column's own unit or the container's
		value unit.
	*/
	std::string valueUnitName(std::size_t input) const override;

protected:
	void doUpdate() override;
	/*! The unit of the model's x values: its time unit, the temperature unit for the
		parametric function.
	*/
	ZEB::Unit xUnitFromDataIO() const override;
	/*! The unit of the model's result. */
	ZEB::Unit yUnitFromDataIO() const override;
	/*! y: the label of the model's result. */
	std::string dataName(OutputDataType data) const override;

private:
	std::unique_ptr<ModelTwo2DBase>	m_model;
	std::array<std::uint32_t, 2>	m_columns;
};

} // namespace EM

#endif // EM_Extractor2DFromTwo2DH
