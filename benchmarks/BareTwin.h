#pragma once

#include <QWidget>

#include <functional>
#include <vector>

namespace Benchmarks {

/// What stands on a window, to be made again from bare controls of the same kinds, with the same texts and choices,
/// in grids of four columns.
class BareTwin {
public:
    explicit BareTwin(const QWidget& original);

    QWidget* Make() const;

private:
    std::function<QWidget*()> make;
    std::vector<BareTwin> children;
};

} // namespace Benchmarks
