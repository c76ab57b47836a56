// SPDX-License-Identifier: GPL-3.0-or-later
// The page of --html: a whole report in one file.
#include "report/HtmlPage.h"

#include "output/OutputFile.h"
#include "plots/PictureFile.h"
#include "report/FitPicture.h"
#include "report/FitTable.h"
#include "report/HtmlTable.h"
#include "report/LevelTable.h"
#include "report/PlotParts.h"
#include "report/RunPicture.h"
#include "report/RunTable.h"
#include "report/SubjectSummary.h"
#include "report/Texts.h"

#include <QCoreApplication>
#include <QPainter>

using namespace quorin;

namespace {

/// A figure of the page: its title and the element svg.
struct PageFigure {
    QString title;
    QByteArray svg;
    QString remark = {};
};

constexpr QSize figureSize(440, 400);

// Pictures are drawn in fixed colours; background, text and grid take the colours of the page.
constexpr auto style = R"(
:root { color-scheme: light dark; --paper: #fff; --ink: #1a1a1a; --faint: #666; --line: #ddd;
  --card: #fff; --blue: #1f77b4; --green: #228844; --red: #cc3322; }
@media (prefers-color-scheme: dark) { :root { --paper: #15171a; --ink: #e8e8e8; --faint: #a8a8a8;
  --line: #3a3d42; --card: #1d2024; --blue: #6db3e8; --green: #5cc27c; --red: #ff8066; } }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 1rem; max-width: 1800px; background: var(--paper);
  color: var(--ink); font: 16px/1.5 system-ui, sans-serif; }
h1 { font-size: 1.5rem; margin: 0 0 .25rem; } h2 { font-size: 1.2rem; margin: 2rem 0 .5rem; }
p, li { max-width: 75ch; } .scroll { margin: .5rem 0; } .faint { color: var(--faint); font-size: .9rem; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; font-size: .875rem; font-variant-numeric: tabular-nums; }
th, td { padding: .25rem .6rem; border-bottom: 1px solid var(--line); text-align: left;
  white-space: nowrap; }
td.number, th.number { text-align: right; }
.grid { display: grid; gap: 1rem; grid-template-columns: repeat(auto-fill, minmax(min(100%, 400px), 1fr)); }
figure { margin: 0; padding: .5rem; border: 1px solid var(--line); border-radius: 4px;
  background: var(--card); break-inside: avoid; }
figure svg { display: block; width: 100%; height: auto; }
figure.wide { max-width: 980px; } figure.narrow { max-width: 500px; }
figure.wide svg { min-width: 700px; }
figcaption { font-size: .875rem; overflow-wrap: anywhere; }
svg [fill="#ffffff"] { fill: var(--card); } svg [stroke="#000000"] { stroke: var(--ink); }
svg text[fill="#000000"], svg [fill="#3c3c3c"] { fill: var(--ink); }
svg [fill="#1f77b4"] { fill: var(--blue); } svg [stroke="#1f77b4"] { stroke: var(--blue); }
svg [fill="#228844"] { fill: var(--green); } svg [stroke="#228844"] { stroke: var(--green); }
svg [fill="#cc3322"] { fill: var(--red); } svg [stroke="#cc3322"] { stroke: var(--red); }
svg text { stroke: none; }
svg [stroke="#e2e2e2"] { stroke: var(--line); } svg [stroke="#3c3c3c"] { stroke: var(--ink); }
@media print { body { max-width: none; font-size: 10pt; padding: 0; }
  .scroll { overflow: visible; } th, td { white-space: normal; padding: 1pt 3pt; }
  figure.wide svg { min-width: 0; } a { color: inherit; } }
)";

QByteArray remarkOf(const PageFigure& figure)
{
    return figure.remark.isEmpty()
        ? QByteArray()
        : "<p class=\"faint\">" + figure.remark.toHtmlEscaped().toUtf8() + "</p>";
}

QByteArray figureOf(const PageFigure& figure, const char* kind)
{
    QByteArray svg = figure.svg;
    // The page sets the size; the picture keeps its proportions by its view box.
    const QByteArray label = figure.title.toHtmlEscaped().toUtf8();
    svg.replace(0, 4, R"(<svg role="img" aria-label=")" + label + "\"");
    return QByteArray("<figure class=\"scroll ") + kind + "\"><figcaption>" + label
        + "</figcaption>" + svg + remarkOf(figure) + "</figure>\n";
}

QByteArray section(const QString& title, const QByteArray& content)
{
    return "<section><h2>" + title.toHtmlEscaped().toUtf8() + "</h2>\n" + content + "</section>\n";
}

QByteArray head(const QVector<Run>& runs)
{
    const QString title = QString("Listening experiment: %1 runs of %2 subjects")
                              .arg(runs.size())
                              .arg(bySubject(runs).size());
    const QString rule = ruleOf(runs);
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"generator\" content=\""
        + makerText().toUtf8()
        + "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
          "<link rel=\"icon\" href=\"data:,\">\n<title>"
        + title.toUtf8() + "</title>\n<style>" + style + "</style>\n</head>\n<body>\n<h1>"
        + title.toUtf8() + "</h1>\n<p class=\"faint\">" + makerText().toUtf8() + ". "
        + rule.toHtmlEscaped().toUtf8() + ".</p>\n";
}

QByteArray flagsOf(const Subject& subject)
{
    QByteArray items;
    for (const Run& run : subject.runs) {
        for (const Flag& flag : run.flags) {
            const QString who = run.isNamed ? sessionOf(run) + ' ' + soundOf(run) : run.fileName;
            items
                += QString("<li><strong>%1: %2</strong>: %3; %4.</li>\n")
                       .arg(who.toHtmlEscaped(), flag.name, flag.seen.toHtmlEscaped(), flag.meaning)
                       .toUtf8();
        }
    }
    return items.isEmpty() ? items : "<ul>\n" + items + "</ul>\n";
}

QByteArray subjectsOf(const QVector<Run>& runs, CurveAxis over)
{
    QByteArray sections;
    const QVector<Subject> subjects = bySubject(runs);
    for (const Subject& subject : subjects) {
        QByteArray content = htmlTable(summaryRows(subject), summaryLeft) + flagsOf(subject);
        if (hasLearningCurve(subject, over)) {
            const QByteArray svg
                = svgPicture(learningPictureSize, [&](QPainter& painter, const QSize& size) {
                      drawLearning(painter, size, subject, over);
                  });
            content += figureOf({"Learning curve of " + subject.name, svg}, "wide");
        }
        sections += section("Subject " + subject.name, content);
    }
    return sections;
}

QByteArray picturesOf(const QVector<Run>& runs, const PageParts& parts)
{
    QByteArray figures;
    for (int i = 0; i < runs.size(); ++i) {
        parts.progress(i, runs.size());
        const Run& run = runs[i];
        const QByteArray svg = svgPicture(figureSize,
            [&run](QPainter& painter, const QSize& size) { drawPlainRun(painter, size, run); });
        const QString title = QString("%1: threshold %2\u00a0%3")
                                  .arg(run.fileName, shown(run.data.threshold), unitOf(run.data));
        figures += figureOf({title, svg, settingsOf(run)}, "small");
    }
    return "<p class=\"faint\">\u2022 correct, \u00d7 wrong, \u25cb reversal used, \u25a1 reversal "
           "not used, - - threshold; below, the reaction times.</p>\n<div class=\"grid\">\n"
        + figures + "</div>\n";
}

QByteArray fitsOf(const PageParts& parts)
{
    if (parts.fits.isEmpty()) {
        return {};
    }
    QByteArray content = R"(<div class="scroll" tabindex="0"><pre>)"
        + fitTable(parts.fits, parts.fitOptions).trimmed().toHtmlEscaped().toUtf8()
        + "</pre></div>\n";
    for (const SubjectFit& fit : parts.fits) {
        const QByteArray svg = svgPicture(fitPictureSize,
            [&fit](QPainter& painter, const QSize& size) { drawFit(painter, size, fit); });
        content += figureOf({"Fit of " + fit.subject, svg}, "wide");
    }
    return section("Psychometric functions", content);
}

QByteArray levelsOf(const QVector<Run>& runs)
{
    const QVector<QStringList> rows = levelRows(runs);
    return rows.isEmpty() ? QByteArray()
                          : section("Levels in dB SPL by the calibration notes",
                              htmlTable(rows, levelRowsLeft, levelRowsLeftAtEnd));
}

} // namespace

QByteArray htmlPage(const QVector<Run>& runs, const PageParts& parts)
{
    return head(runs) + subjectsOf(runs, parts.curves) + fitsOf(parts)
        + section("All runs", htmlTable(runRows(runs), runRowsLeft, runRowsLeftAtEnd))
        + levelsOf(runs) + section("Each run", picturesOf(runs, parts)) + "</body>\n</html>\n";
}
