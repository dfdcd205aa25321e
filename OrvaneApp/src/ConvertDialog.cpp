#include "ConvertDialog.h"

#include <algorithm>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

#include <DATAIO_GeoFile.h>

#include <EM_FieldCut.h>
#include <EM_SpaceGrid.h>

#include <ZEB_Exception.h>

#include <OVP_FieldOutputFile.h>
#include <OVP_SliceWriter.h>
#include <OVP_TecplotConverter.h>
#include <OVP_UserInteraction.h>

namespace {

const char * const DIRECTION_NAMES[3] = { "x", "y", "z" };

/*! The position of an element or side. */
template <typename T>
QString positionText(const T & item) {
	return ConvertDialog::tr("x = %1 m, y = %2 m, z = %3 m").arg(item.m_x).arg(item.m_y).arg(item.m_z);
}

} // namespace


ConvertDialog::ConvertDialog(Mode mode, std::unique_ptr<OVP::FieldOutputFile> file, QWidget * parent) :
	QDialog(parent),
	m_mode(mode),
	m_file(std::move(file))
{
	const QFileInfo source(m_file->path());
	setWindowTitle(mode == M_Tecplot ? tr("Convert to Tecplot") : tr("Write slice"));
	QFormLayout * form = new QFormLayout;
	form->addRow(tr("Output file:"), new QLabel(source.fileName()));

	const std::size_t count = m_file->dataIO().timePoints().size();
	if (mode == M_Tecplot) {
		m_first = timeCombo();
		m_last = timeCombo();
		m_last->setCurrentIndex(static_cast<int>(count) - 1);
		form->addRow(tr("First time point:"), m_first);
		form->addRow(tr("Last time point:"), m_last);
	}
	else {
		m_kind = new QComboBox;
		// the slices of a flux output run through sides
		const bool flux = m_file->isFlux();
		m_kind->addItems({ flux ? tr("History at the side") : tr("History at the element"), tr("Profile at one time point"),
						   tr("Profile over all time points") });
		const std::vector<std::uint32_t> & nums = m_file->dataIO().nums();
		m_element = new QSpinBox;
		m_element->setRange(0, static_cast<int>(*std::max_element(nums.begin(), nums.end())));
		m_element->setValue(static_cast<int>(nums[nums.size()/2]));
		m_position = new QLabel;
		m_direction = new QComboBox;
		EM::SpaceGrid grid;
		grid.build(m_file->dataIO(), m_file->geometry(), EM::FieldCut::spaceDimensionCount(m_file->dataIO().dataFormat()));
		for (unsigned int d = 0; d < grid.dimensionCount(); ++d)
			m_direction->addItem(DIRECTION_NAMES[grid.direction(d)], grid.direction(d));
		m_time = timeCombo();
		form->addRow(tr("Slice:"), m_kind);
		form->addRow(flux ? tr("Side:") : tr("Element:"), m_element);
		form->addRow(QString(), m_position);
		form->addRow(tr("Direction:"), m_direction);
		form->addRow(tr("Time point:"), m_time);
		connect(m_kind, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ConvertDialog::updateSliceFields);
		connect(m_element, QOverload<int>::of(&QSpinBox::valueChanged), this, &ConvertDialog::updateSliceFields);
		updateSliceFields();
	}

	m_target = new QLineEdit(source.path() + "/" + source.completeBaseName() +
							 (mode == M_Tecplot ? QString(".dat") : "_slice." + source.suffix()));
	QPushButton * browseButton = new QPushButton(tr("Browse..."));
	connect(browseButton, &QPushButton::clicked, this, &ConvertDialog::browse);
	QHBoxLayout * targetRow = new QHBoxLayout;
	targetRow->addWidget(m_target, 1);
	targetRow->addWidget(browseButton);
	form->addRow(tr("Target file:"), targetRow);

	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
	connect(buttons, &QDialogButtonBox::accepted, this, &ConvertDialog::accept);
	connect(buttons, &QDialogButtonBox::rejected, this, &ConvertDialog::reject);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addLayout(form);
	layout->addWidget(buttons);
	m_target->setMinimumWidth(fontMetrics().averageCharWidth()*50);
}


ConvertDialog::~ConvertDialog() = default;


void ConvertDialog::accept() {
	const QString target = m_target->text().trimmed();
	try {
		if (m_mode == M_Tecplot) {
			OVP::TecplotConverter converter(*m_file);
			converter.setTimeRange(static_cast<unsigned int>(m_first->currentIndex()),
								   static_cast<unsigned int>(m_last->currentIndex()));
			converter.write(target);
		}
		else {
			OVP::SliceWriter writer(*m_file);
			const std::uint32_t element = static_cast<std::uint32_t>(m_element->value());
			if (m_kind->currentIndex() == 0)
				writer.writeHistory(element, target);
			else
				writer.writeProfile(element, m_direction->currentData().toUInt(),
									m_kind->currentIndex() == 1 ? static_cast<unsigned int>(m_time->currentIndex())
																: OVP::SliceWriter::ALL_TIMES, target);
		}
	}
	catch (ZEB::Exception & ex) {
		QMessageBox::critical(this, windowTitle(), OVP::exceptionText(ex));
		return;
	}
	QMessageBox::information(this, windowTitle(), tr("Wrote '%1'.").arg(target));
	QDialog::accept();
}


QComboBox * ConvertDialog::timeCombo() const {
	QComboBox * combo = new QComboBox;
	const QString unit = QString::fromStdString(m_file->dataIO().timeUnit());
	const std::vector<double> & time = m_file->dataIO().timePoints();
	for (std::size_t t = 0; t < time.size(); ++t)
		combo->addItem(tr("%1: t = %2 %3").arg(t).arg(time[t]).arg(unit));
	return combo;
}


void ConvertDialog::updateSliceFields() {
	const std::vector<std::uint32_t> & nums = m_file->dataIO().nums();
	const std::uint32_t number = static_cast<std::uint32_t>(m_element->value());
	const DATAIO::GeoFile & geometry = m_file->geometry();
	const std::size_t count = m_file->isFlux() ? geometry.sides().size() : geometry.elements().size();
	if (std::find(nums.begin(), nums.end(), number) == nums.end() || number >= count)
		m_position->setText(tr("not in this output"));
	else if (m_file->isFlux())
		m_position->setText(positionText(geometry.sides()[number]));
	else
		m_position->setText(positionText(geometry.elements()[number]));
	m_direction->setEnabled(m_kind->currentIndex() != 0);
	m_time->setEnabled(m_kind->currentIndex() == 1);
}


void ConvertDialog::browse() {
	const QString filter = m_mode == M_Tecplot ? tr("Tecplot data files (*.dat);;All files (*)") : tr("All files (*)");
	const QString name = QFileDialog::getSaveFileName(this, tr("Target file"), m_target->text(), filter);
	if (!name.isEmpty())
		m_target->setText(name);
}
