#pragma once

#include "frame/commonvalue.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

/**
 * Fields that show a value that several subjects have in common, or MULTIPLE. Of gives what the user has put
 * in; nothing while the field shows MULTIPLE.
 */
namespace CommonFields {

/** Where the subjects differ, the box stands one step below its range. */
template <class Box, class Value>
void Show(Box* pBox, const std::optional<Value>& value, double dMinimum, double dMaximum)
{
    using Number = decltype(pBox->value());
    pBox->setSpecialValueText(value ? "" : MULTIPLE);
    pBox->setRange(Number(value ? dMinimum : dMinimum - pBox->singleStep()), Number(dMaximum));
    pBox->setValue(value ? Number(*value) : pBox->minimum());
}

inline void Show(QSlider* pSlider, const std::optional<qint64>& value, qint64 nMinimum, qint64 nMaximum)
{
    pSlider->setRange(int(nMinimum), int(nMaximum));
    pSlider->setValue(int(value.value_or(nMinimum)));
}

/** A spin box in the range that it has. */
template <class Box, class Value>
auto Show(Box* pBox, const std::optional<Value>& value) -> decltype(pBox->singleStep(), void())
{
    const bool bBelow = !pBox->specialValueText().isEmpty();
    Show(pBox, value, pBox->minimum() + (bBelow ? pBox->singleStep() : 0), pBox->maximum());
}

/** @param index  of the entry, from 0 */
inline void Show(QComboBox* pBox, const std::optional<qint64>& index)
{
    pBox->setPlaceholderText(index ? "" : MULTIPLE);
    pBox->setCurrentIndex(int(index.value_or(-1)));
}

inline void Show(QCheckBox* pBox, const std::optional<bool>& value)
{
    pBox->setTristate(!value);
    pBox->setCheckState(!value ? Qt::PartiallyChecked : *value ? Qt::Checked : Qt::Unchecked);
}

inline void Show(QLineEdit* pField, const std::optional<QString>& sText)
{
    pField->setPlaceholderText(sText ? "" : MULTIPLE);
    pField->setText(sText.value_or(QString()));
}

template <class Box> auto Of(const Box* pBox) -> std::optional<decltype(pBox->value())>
{
    const bool bMixed = !pBox->specialValueText().isEmpty() && pBox->value() == pBox->minimum();
    return bMixed ? std::nullopt : std::optional(pBox->value());
}

inline std::optional<qint64> Of(const QComboBox* pBox)
{
    return pBox->currentIndex() < 0 ? std::nullopt : std::optional<qint64>(pBox->currentIndex());
}

inline std::optional<bool> Of(const QCheckBox* pBox)
{
    return pBox->checkState() == Qt::PartiallyChecked ? std::nullopt : std::optional(pBox->isChecked());
}

inline std::optional<QString> Of(const QLineEdit* pField)
{
    const bool bMixed = pField->placeholderText() == MULTIPLE && !pField->isModified();
    return bMixed ? std::nullopt : std::optional(pField->text());
}

} // namespace CommonFields
