#include "QtExt_LogModel.h"

#include <algorithm>

#include <QColor>
#include <QStringList>

#include <ZEB_MessageHandler.h>

namespace QtExt {

namespace {

/*! The type a message is kept as: unknown numbers become progress messages. */
int knownType(int type) {
	return type >= 0 && type < LogModel::TYPE_COUNT ? type : ZEB::MSG_PROGRESS;
}

} // namespace


LogModel::LogModel(QObject * parent) :
	QAbstractListModel(parent)
{
	m_shownTypes.set();
}


void LogModel::append(int type, const QString & text) {
	type = knownType(type);
	const QStringList lines = text.split('\n');
	int first = 0;
	if (type == ZEB::MSG_CONT) {
		if (m_lines.empty()) {
			type = ZEB::MSG_PROGRESS;
		}
		else {
			// the last line goes on, with the type it started with
			Line & last = m_lines.back();
			last.m_text += " " + lines.front();
			type = last.m_type;
			if (!m_rows.empty() && m_rows.back() == &last)
				emit dataChanged(index(rowCount() - 1), index(rowCount() - 1));
			first = 1;
		}
	}
	for (int i = first; i < lines.size(); ++i)
		appendLine(type, lines[i]);
	dropOldLines();
}


void LogModel::clear() {
	beginResetModel();
	m_rows.clear();
	m_lines.clear();
	endResetModel();
}


void LogModel::setMaxLines(int maxLines) {
	m_maxLines = std::max(1, maxLines);
	dropOldLines();
}


void LogModel::setTypeShown(int type, bool shown) {
	if (type < 0 || type >= TYPE_COUNT || m_shownTypes.test(type) == shown)
		return;
	beginResetModel();
	m_shownTypes.set(type, shown);
	m_rows.clear();
	for (const Line & line : m_lines)
		if (m_shownTypes.test(line.m_type))
			m_rows.push_back(&line);
	endResetModel();
}


bool LogModel::isTypeShown(int type) const {
	return type >= 0 && type < TYPE_COUNT && m_shownTypes.test(type);
}


int LogModel::rowCount(const QModelIndex & parent) const {
	return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}


QVariant LogModel::data(const QModelIndex & index, int role) const {
	if (!index.isValid() || index.row() >= rowCount())
		return QVariant();
	const Line & line = *m_rows[static_cast<std::size_t>(index.row())];
	switch (role) {
		case Qt::DisplayRole :
			return line.m_text;
		case TypeRole :
			return line.m_type;
		case Qt::ForegroundRole :
			switch (line.m_type) {
				case ZEB::MSG_ERROR :	return QColor(200, 0, 0);
				case ZEB::MSG_WARNING :	return QColor(170, 85, 0);
				case ZEB::MSG_DEBUG :	return QColor(128, 128, 128);
				default :				return QVariant();
			}
		default :
			return QVariant();
	}
}


void LogModel::appendLine(int type, const QString & text) {
	m_lines.push_back(Line{ type, text });
	if (!m_shownTypes.test(type))
		return;
	beginInsertRows(QModelIndex(), rowCount(), rowCount());
	m_rows.push_back(&m_lines.back());
	endInsertRows();
}


void LogModel::dropOldLines() {
	if (m_lines.size() <= static_cast<std::size_t>(m_maxLines))
		return;
	const std::size_t dropped = m_lines.size() - static_cast<std::size_t>(m_maxLines);
	// the shown lines among the dropped ones are the first rows
	int rows = 0;
	for (std::size_t i = 0; i < dropped; ++i)
		if (m_shownTypes.test(m_lines[i].m_type))
			++rows;
	if (rows > 0)
		beginRemoveRows(QModelIndex(), 0, rows - 1);
	m_rows.erase(m_rows.begin(), m_rows.begin() + rows);
	m_lines.erase(m_lines.begin(), m_lines.begin() + static_cast<std::ptrdiff_t>(dropped));
	if (rows > 0)
		endRemoveRows();
}

} // namespace QtExt
