#pragma once

#include "model/studio_tool.h"

#include <QWidget>

namespace quarlin {

class SymbolView;
class TextLabel;

/// The strip at the top of the window: the brand, and the tool that is showing.
class BrandHeader : public QWidget {
    Q_OBJECT

public:
    explicit BrandHeader(StudioTool tool, QWidget* parent = nullptr);

    void setTool(StudioTool tool);

private:
    SymbolView* m_symbol;
    TextLabel* m_title;
};

}  // namespace quarlin
