// The caption bar, the slider's rules and the twips conversion.
#include "QtPrint.h"
#include "controls/SliderLogic.h"
#include "controls/Twips.h"
#include "controls/uCaptionBar.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

TEST(Controls, CaptionBarStatusAndDoubleClicks) {
    uCaptionBar bar;
    bar.resize(300, 22);
    bar.setCaption(QStringLiteral("Preview"));
    bar.setStatus(QStringLiteral("120 x 80"));
    bar.setStatus(QString());
    EXPECT_EQ(bar.Status(), QString());
    EXPECT_EQ(bar.Caption(), QStringLiteral("Preview"));
    QSignalSpy clicks(&bar, &uCaptionBar::CaptionDblClick);
    // On the caption label, on the status label, on the background: one event each.
    for (QWidget* target :
         {static_cast<QWidget*>(bar.findChild<QLabel*>("lblCap")),
          static_cast<QWidget*>(bar.findChild<QLabel*>("lblStat")), static_cast<QWidget*>(&bar)})
        QTest::mouseDClick(target, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(clicks.count(), 3);
}

TEST(Controls, SliderThumbStaysOnTheTrack) {
    SliderLogic slider;
    slider.setSizes(200, 20);
    slider.pointAtTrack(500); // beyond the end: the last place the thumb fits
    EXPECT_EQ(slider.thumbLeft(), 180);
    slider.pointAtTrack(-5);
    EXPECT_EQ(slider.thumbLeft(), 0);
    // A drag keeps the grab point under the pointer.
    slider.pointAtTrack(50);
    slider.pressThumb(5);
    slider.moveOnThumb(15);
    EXPECT_EQ(slider.thumbLeft(), 60);
    slider.release();
    slider.moveOnThumb(15); // no longer dragging
    EXPECT_EQ(slider.thumbLeft(), 60);
    slider.setSizes(50, 20); // a narrower track pulls the thumb back
    EXPECT_EQ(slider.thumbLeft(), 30);
    EXPECT_EQ(Twips::toPixels(1440), 96);
    EXPECT_EQ(Twips::toPixels(550), 37);
}
