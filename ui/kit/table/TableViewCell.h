#pragma once

#include "ui/kit/view/ImageView.h"
#include "ui/kit/view/Label.h"

namespace kit {

// One row of a table. Tables keep a small number of cells and use each again for other rows that ask for its reuse
// identifier: what a screen does not set anew stays from the cell's last row. The table owns its cells. CellView.qml
// draws one, takes its touches and says what a screen reader hears of it.
class TableViewCell : public View
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("cells are made in C++")
    Q_PROPERTY(kit::Label* textLabel READ textLabel CONSTANT)
    Q_PROPERTY(kit::Label* detailTextLabel READ detailTextLabel CONSTANT)
    Q_PROPERTY(kit::ImageView* imageView READ imageView CONSTANT)
    Q_PROPERTY(kit::View* backgroundView READ backgroundView NOTIFY cellChanged)
    Q_PROPERTY(kit::View* selectedBackgroundView READ selectedBackgroundView NOTIFY cellChanged)
    Q_PROPERTY(kit::View* accessory READ shownAccessory NOTIFY cellChanged)
    Q_PROPERTY(double separatorLeft READ separatorLeft NOTIFY cellChanged)
    Q_PROPERTY(double separatorRight READ separatorRight NOTIFY cellChanged)
    Q_PROPERTY(bool meetsHeader READ meetsHeader NOTIFY rowChanged)
    Q_PROPERTY(bool highlighted READ isHighlighted NOTIFY selectionChanged)
    // Changes before the selection that it is for.
    Q_PROPERTY(bool fadesSelection READ fadesSelection NOTIFY fadesSelectionChanged)
    Q_PROPERTY(int section READ section NOTIFY rowChanged)
    Q_PROPERTY(int row READ row NOTIFY rowChanged)
    // Of its section.
    Q_PROPERTY(int rowCount READ rowCount NOTIFY rowChanged)

public:
    // Default: a text. Subtitle: a text above a detail text. Value1: a text at the left, a detail text at the right.
    // All three can have an image at the left.
    enum class Style { Default, Subtitle, Value1 };
    enum class AccessoryType { None, DisclosureIndicator, Checkmark };

    explicit TableViewCell(Style style, const QString& reuseIdentifier);

    Style style() const { return m_style; }
    const QString& reuseIdentifier() const { return m_reuseIdentifier; }
    // The area left of the accessory, which holds the labels and the image.
    View* contentView() const { return m_contentView; }
    Label* textLabel() const { return m_textLabel; }
    // None in the default style.
    Label* detailTextLabel() const { return m_detailTextLabel; }
    ImageView* imageView() const { return m_imageView; }

    // Each takes ownership of the view and deletes the one before; null for none.
    void setBackgroundView(View* view);
    void setSelectedBackgroundView(View* view);
    void setAccessoryView(View* view);
    View* backgroundView() const { return m_backgroundView; }
    View* selectedBackgroundView() const { return m_selectedBackgroundView; }
    // An accessory view takes the place of the accessory of the type.
    View* accessoryView() const { return m_accessoryView; }
    AccessoryType accessoryType() const { return m_accessoryType; }
    void setAccessoryType(AccessoryType type);

    // The colour of the checkmark.
    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color);
    const EdgeInsets& layoutMargins() const { return m_layoutMargins; }
    void setLayoutMargins(const EdgeInsets& margins);
    const EdgeInsets& separatorInset() const { return m_separatorInset; }
    void setSeparatorInset(const EdgeInsets& inset);

    bool isSelected() const { return m_selected; }
    bool isHighlighted() const { return m_selected || m_pressed; }

    // Called before the cell serves another row. Keeps everything but the selection.
    virtual void prepareForReuse();
    void layoutSubviews() override;

    // The table's side: which row the cell stands for, pressed and selected state, the look of the accessory shown.
    void setIndexPath(const IndexPath& indexPath);
    const IndexPath& indexPath() const { return m_indexPath; }
    void setRowCount(int count);
    int rowCount() const { return m_rowCount; }
    // Whether a section's header follows the row; its edge stands for the separator.
    void setMeetsHeader(bool meets);
    bool meetsHeader() const { return m_meetsHeader; }
    int section() const { return m_indexPath.section; }
    int row() const { return m_indexPath.row; }
    enum class Fade { Immediately, Animated };
    void setSelected(bool selected, Fade fade);
    void setPressed(bool pressed);
    bool fadesSelection() const { return m_fade == Fade::Animated; }
    View* shownAccessory() const { return m_accessoryView ? m_accessoryView : m_typeAccessory; }
    double separatorLeft() const { return m_separatorInset.left; }
    double separatorRight() const { return m_separatorInset.right; }
    QString component() const override { return QStringLiteral("CellView"); }

Q_SIGNALS:
    void cellChanged();
    void fadesSelectionChanged();
    void selectionChanged();
    void rowChanged();

protected:
    // Places image and texts within the content view, which has its size: a cell that has places of its own for them
    // gives them these at once. A text is laid out anew at every change of its size.
    virtual void layOutContents();

private:
    void layOutDefault(double left, double width);
    void layOutSubtitle(double left, double width);
    void layOutValue1(double left, double width);
    double accessoryMargin() const;
    void replaceView(View*& slot, View* view);
    View* makeTypeAccessory() const;

    Style m_style;
    QString m_reuseIdentifier;
    View* m_contentView;
    Label* m_textLabel;
    Label* m_detailTextLabel = nullptr;
    ImageView* m_imageView;
    View* m_backgroundView = nullptr;
    View* m_selectedBackgroundView = nullptr;
    View* m_accessoryView = nullptr;
    View* m_typeAccessory = nullptr;
    AccessoryType m_accessoryType = AccessoryType::None;
    Color m_tintColor = Color::black();
    EdgeInsets m_layoutMargins{ 0, 16, 0, 16 };
    EdgeInsets m_separatorInset;
    IndexPath m_indexPath;
    int m_rowCount = 0;
    bool m_meetsHeader = false;
    bool m_selected = false;
    bool m_pressed = false;
    Fade m_fade = Fade::Immediately;
};

} // namespace kit
