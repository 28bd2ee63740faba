// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBColorizeWidget.h>

class tst_HBColorizeWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dialog() { HBCheckColorPanel<HBColorizeWidget>(); }
};

HB_TEST_MAIN(tst_HBColorizeWidget)
#include "tst_HBColorizeWidget.moc"
