// SPDX-License-Identifier: MIT
#ifndef ORIM_FLOWLAYOUT_H
#define ORIM_FLOWLAYOUT_H

#include <QLayout>

#include <memory>
#include <vector>

//! Lays widgets in rows, like words in a text: as many as fit in a row, at their preferred sizes.
class FlowLayout : public QLayout
{
    Q_OBJECT
public:
    explicit FlowLayout(QWidget * parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem * item) override; //!< takes it over
    int count() const override;
    QLayoutItem * itemAt(int index) const override;
    QLayoutItem * takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

    QSize sizeHint() const override { return minimumSize(); }

    //! The size of the largest item.
    QSize minimumSize() const override;
    void setGeometry(QRect const & rect) override;

private:
    //! Places the items in \a rect when \a move is set. \return the height that they need.
    int Lay(QRect const & rect, bool move) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

#endif
