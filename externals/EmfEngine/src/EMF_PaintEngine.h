#ifndef EMF_PaintEngineH
#define EMF_PaintEngineH

#include <cstdint>
#include <memory>

#include <QPaintEngine>
#include <QPainterPath>

namespace EMF {

class PaintDevice;

/*! The paint engine behind EMF::PaintDevice: turns QPainter calls into EMF records.

	It declares all paint engine features, so that QPainter hands every primitive over untouched
	(nothing is rasterised by QPainter's emulation); what EMF cannot express degrades here, as
	described in docs/emf.md. Coordinates are mapped through the painter's world transform and
	the device's logical scale by the engine itself, text is written as EMR_EXTTEXTOUTW with a
	font whose escapement carries the rotation, images as EMR_STRETCHDIBITS.

	Only EMF::PaintDevice can be painted with this engine.
*/
class PaintEngine : public QPaintEngine {
public:
	PaintEngine();
	~PaintEngine() override;

	bool begin(QPaintDevice * pdev) override;
	bool end() override;
	void updateState(const QPaintEngineState & state) override;

	void drawPath(const QPainterPath & path) override;
	void drawPolygon(const QPointF * points, int pointCount, PolygonDrawMode mode) override;
	void drawPolygon(const QPoint * points, int pointCount, PolygonDrawMode mode) override;
	void drawLines(const QLineF * lines, int lineCount) override;
	void drawLines(const QLine * lines, int lineCount) override;
	void drawRects(const QRectF * rects, int rectCount) override;
	void drawRects(const QRect * rects, int rectCount) override;
	void drawEllipse(const QRectF & rect) override;
	void drawEllipse(const QRect & rect) override;
	void drawPixmap(const QRectF & r, const QPixmap & pm, const QRectF & sr) override;
	void drawImage(const QRectF & r, const QImage & image, const QRectF & sr,
				   Qt::ImageConversionFlags flags = Qt::AutoColor) override;
	void drawTextItem(const QPointF & p, const QTextItem & textItem) override;

	/*! QPaintEngine::User: EMF has no type of its own in QPaintEngine::Type. */
	Type type() const override { return QPaintEngine::User; }

private:
	/*! Draws a rectangle or an ellipse (addShape) that an axis-aligned transform keeps as such as
		one box record; any other transform or an empty box goes through the painter path.
	*/
	void drawBox(const QRectF & rect, std::uint32_t recordType,
				 void (QPainterPath::*addShape)(const QRectF &));

	class Private;
	std::unique_ptr<Private>	d;
};

} // namespace EMF

#endif // EMF_PaintEngineH
