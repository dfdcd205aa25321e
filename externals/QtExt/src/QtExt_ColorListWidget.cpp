#include "QtExt_ColorListWidget.h"

#include <algorithm>

#include <QApplication>
#include <QColorDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace QtExt {

namespace {

/*! What an entry stands for (item data role EntryRole). */
enum Entry {
	E_Color,
	E_NoColor,
	E_Other
};

const int EntryRole = Qt::UserRole + 1;

/*! The colours offered by default: soft tones that stay readable behind text. */
const struct {
	const char *	m_name;
	const char *	m_color;
} DEFAULT_COLORS[] = {
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Red"),		"#e57373" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Orange"),	"#ffb74d" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Yellow"),	"#fff176" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Green"),		"#81c784" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Teal"),		"#4db6ac" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Blue"),		"#64b5f6" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Violet"),	"#9575cd" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Pink"),		"#f06292" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Brown"),		"#a1887f" },
	{ QT_TRANSLATE_NOOP("QtExt::ColorListWidget", "Grey"),		"#bdbdbd" }
};

} // namespace


ColorListWidget::ColorListWidget(QWidget * parent) :
	QListWidget(parent)
{
	setSelectionMode(QAbstractItemView::SingleSelection);
	setUniformItemSizes(true);
	for (const auto & c : DEFAULT_COLORS)
		addItem(newItem(tr(c.m_name), QColor(c.m_color)));
	QListWidgetItem * other = new QListWidgetItem(otherSwatch(), tr("Other..."));
	other->setData(EntryRole, E_Other);
	addItem(other);
	connect(this, &QListWidget::itemClicked, this, &ColorListWidget::choose);
}


void ColorListWidget::setNoColorEntry(bool offered) {
	const bool present = count() > 0 && item(0)->data(EntryRole).toInt() == E_NoColor;
	if (offered && !present)
		insertItem(0, newItem(tr("No colour"), QColor()));
	else if (!offered && present)
		delete takeItem(0);
}


void ColorListWidget::addColor(const QString & name, const QColor & color) {
	insertItem(otherRow(), newItem(name, color));
}


void ColorListWidget::setCurrentColor(const QColor & color) {
	m_color = color;
	int row = rowOf(color);
	if (row < 0 && color.isValid()) {
		addColor(color.name(), color);
		row = otherRow() - 1;
	}
	setCurrentRow(row);
}


QColor ColorListWidget::currentColor() const {
	const QListWidgetItem * item = currentItem();
	return item != nullptr && item->data(EntryRole).toInt() == E_Color ? item->data(Qt::UserRole).value<QColor>()
																		 : QColor();
}


void ColorListWidget::showPopup(const QPoint & globalPos) {
	setWindowFlags(Qt::Popup);
	// the rows as laid out, so that the popup ends below the last one
	doItemsLayout();
	resize(sizeHintForColumn(0) + 2*frameWidth() + 4, visualItemRect(item(count() - 1)).bottom() + 1 + 2*frameWidth());
	// kept on the screen
	QRect geometry(globalPos, size());
	const QScreen * screen = QApplication::screenAt(globalPos);
	if (screen != nullptr) {
		const QRect available = screen->availableGeometry();
		geometry.moveLeft(std::max(available.left(), std::min(geometry.left(), available.right() - width())));
		geometry.moveTop(std::max(available.top(), std::min(geometry.top(), available.bottom() - height())));
	}
	move(geometry.topLeft());
	show();
	setFocus();
}


QSize ColorListWidget::sizeHint() const {
	const int frame = 2*frameWidth();
	return QSize(sizeHintForColumn(0) + frame + 4, sizeHintForRow(0)*count() + frame);
}


void ColorListWidget::keyPressEvent(QKeyEvent * event) {
	switch (event->key()) {
		case Qt::Key_Return :
		case Qt::Key_Enter :
			if (currentItem() != nullptr) {
				choose(currentItem());
				return;
			}
			break;
		case Qt::Key_Escape :
			if (isWindow()) {
				close();
				return;
			}
			break;
		default : ;
	}
	QListWidget::keyPressEvent(event);
}


void ColorListWidget::choose(QListWidgetItem * item) {
	const int entry = item->data(EntryRole).toInt();
	if (isWindow())
		close();
	if (entry != E_Other) {
		m_color = entry == E_Color ? item->data(Qt::UserRole).value<QColor>() : QColor();
		emit colorChosen(m_color);
		return;
	}
	const QColor color = QColorDialog::getColor(m_color.isValid() ? m_color : QColor(Qt::white),
												parentWidget() != nullptr ? parentWidget() : this, tr("Choose colour"));
	if (!color.isValid())
		return;
	setCurrentColor(color);
	emit colorChosen(color);
}


QPixmap ColorListWidget::emptySwatch() const {
	QPixmap swatch(iconSize().isValid() ? iconSize() : QSize(16, 16));
	swatch.fill(Qt::transparent);
	return swatch;
}


QIcon ColorListWidget::otherSwatch() const {
	// four colours for "any colour"
	QPixmap swatch = emptySwatch();
	QPainter p(&swatch);
	const QRect frame = swatch.rect().adjusted(0, 0, -1, -1);
	const int w = swatch.width()/2, h = swatch.height()/2;
	p.fillRect(0, 0, w, h, QColor(DEFAULT_COLORS[0].m_color));
	p.fillRect(w, 0, swatch.width() - w, h, QColor(DEFAULT_COLORS[2].m_color));
	p.fillRect(0, h, w, swatch.height() - h, QColor(DEFAULT_COLORS[3].m_color));
	p.fillRect(w, h, swatch.width() - w, swatch.height() - h, QColor(DEFAULT_COLORS[5].m_color));
	p.setPen(palette().color(QPalette::Mid));
	p.drawRect(frame);
	return QIcon(swatch);
}


int ColorListWidget::rowOf(const QColor & color) const {
	for (int r = 0; r < count(); ++r) {
		const int entry = item(r)->data(EntryRole).toInt();
		if ((entry == E_NoColor && !color.isValid())
			|| (entry == E_Color && color.isValid() && item(r)->data(Qt::UserRole).value<QColor>().rgb() == color.rgb()))
		{
			return r;
		}
	}
	return -1;
}


QListWidgetItem * ColorListWidget::newItem(const QString & name, const QColor & color) const {
	QPixmap swatch = emptySwatch();
	QPainter p(&swatch);
	const QRect frame = swatch.rect().adjusted(0, 0, -1, -1);
	p.setPen(palette().color(QPalette::Mid));
	p.setBrush(color.isValid() ? QBrush(color) : QBrush(Qt::NoBrush));
	p.drawRect(frame);
	if (!color.isValid())
		p.drawLine(frame.bottomLeft(), frame.topRight());
	p.end();

	QListWidgetItem * item = new QListWidgetItem(QIcon(swatch), name);
	item->setData(EntryRole, color.isValid() ? E_Color : E_NoColor);
	item->setData(Qt::UserRole, color);
	return item;
}

} // namespace QtExt
