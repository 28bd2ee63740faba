// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <KMFillColorWidget.h>

class tst_KMFillColorWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dialog() { HBCheckColorPanel<KMFillColorWidget>(); }
};

HB_TEST_MAIN(tst_KMFillColorWidget)
#include "tst_KMFillColorWidget.moc"
