#include "OVP_ManipulatorOptions.h"

#include <EM_ManipulatorBase.h>

#include <ZEB_Exception.h>

namespace OVP {

namespace {

/*! Shown, and raised, when the manipulator refuses its parameter. */
const char * const INVALID_PARAMETER = QT_TRANSLATE_NOOP("ManipulatorOptions", "Invalid parameter for manipulator.");

/*! The manipulator type of each choice but MC_None. */
EM::ManipulatorBase::ManipulatorType manipulatorType(ManipulatorOptions::Choice choice) {
	switch (choice) {
		case ManipulatorOptions::MC_Difference2First :	return EM::ManipulatorBase::MT_2DDifference2First;
		case ManipulatorOptions::MC_Scaling :			return EM::ManipulatorBase::MT_2DScaling;
		default :										return EM::ManipulatorBase::MT_2DOffset;
	}
}

/*! The manipulator of a choice (not MC_None) with the parameter; throws when it refuses it. */
std::unique_ptr<EM::ManipulatorBase> createManipulator(ManipulatorOptions::Choice choice, const QString & parameter) {
	std::unique_ptr<EM::ManipulatorBase> manipulator = Mapper::createManipulator(ManipulatorOptions::typeKeyword(choice));
	manipulator->setFromParameter(parameter.trimmed().toStdString());
	return manipulator;
}

} // namespace


QString ManipulatorOptions::text(Choice choice) {
	switch (choice) {
		case MC_Difference2First :	return tr("Difference between value and first value");
		case MC_Scaling :			return tr("Scale by factor");
		case MC_Offset :			return tr("Add offset (value shift)");
		default :					return tr("None");
	}
}


QString ManipulatorOptions::parameterLabel(Choice choice) {
	switch (choice) {
		case MC_Scaling :	return tr("Factor:");
		case MC_Offset :	return tr("Offset:");
		default :			return QString();
	}
}


std::string ManipulatorOptions::typeKeyword(Choice choice) {
	return choice == MC_None ? std::string() : std::string(EM::ManipulatorBase::typeKeyword(manipulatorType(choice)));
}


ManipulatorOptions::Choice ManipulatorOptions::choice(const std::string & typeKeyword) {
	for (int c = MC_Difference2First; c < NUM_MC; ++c)
		if (typeKeyword == ManipulatorOptions::typeKeyword(static_cast<Choice>(c)))
			return static_cast<Choice>(c);
	return MC_None;
}


void ManipulatorOptions::setChoice(Choice choice) {
	m_choice = choice;
	m_parameter = choice == MC_None ? QString()
		: QString::fromStdString(Mapper::createManipulator(typeKeyword(choice))->parameter());
}


void ManipulatorOptions::setParameter(const QString & parameter) {
	m_parameter = parameter;
}


QString ManipulatorOptions::errorText() const {
	try {
		manipulators();
	}
	catch (ZEB::Exception &) {
		return tr(INVALID_PARAMETER);
	}
	return QString();
}


Mapper::ManipulatorList ManipulatorOptions::manipulators() const {
	FUNCID(ManipulatorOptions::manipulators);
	if (m_choice == MC_None)
		return Mapper::ManipulatorList();
	try {
		std::unique_ptr<EM::ManipulatorBase> manipulator = createManipulator(m_choice, m_parameter);
		return { { manipulator->typeKeyword(), manipulator->parameter() } };
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, INVALID_PARAMETER, FUNC_ID);
	}
}

} // namespace OVP
