// Makes one page and one JUnit file of what the test programs have written:
//     cscript //nologo report.js FOLDER PROGRAM ...
var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = WScript.Arguments(0);
var passed = 0, failed = 0, skipped = 0;
var rows = "", faults = "", suites = "";

function readAll(path) {
    if (!files.FileExists(path) || files.GetFile(path).Size == 0)
        return "";
    var stream = files.OpenTextFile(path, 1);
    var text = stream.ReadAll();
    stream.Close();
    return text;
}

function writeAll(path, text) {
    var stream = files.CreateTextFile(path, true);
    stream.Write(text);
    stream.Close();
}

function attribute(element, name) {
    var found = new RegExp(" " + name + "=\"([^\"]*)\"").exec(element);
    return found ? found[1] : "";
}

function escaped(text) {
    return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;").replace(/"/g, "&quot;");
}

function addFault(name, text) {
    faults += "<h3>" + name + "</h3><pre>" + text + "</pre>\n";
}

// One test program: what it has written, or nothing when it ended before.
function addProgram(name) {
    var text = readAll(folder + "\\" + name + ".xml");
    var counts = {run: 0, failed: 0, skipped: 0};
    var cases = text.split("<testcase ");
    for (var i = 1; i < cases.length; ++i) {
        var head = cases[i].substr(0, cases[i].indexOf(">"));
        if (attribute(" " + head, "status") != "run")
            continue;
        ++counts.run;
        if (cases[i].indexOf("<failure ") >= 0) {
            ++counts.failed;
            addFault(name + ": " + attribute(" " + head, "classname") + "." + attribute(" " + head, "name"),
                     attribute(cases[i].substr(cases[i].indexOf("<failure ")), "message"));
        } else if (attribute(" " + head, "result") == "skipped") {
            ++counts.skipped;
        }
    }
    if (text == "") {
        var log = readAll(folder + "\\" + name + ".log");
        ++counts.run;
        ++counts.failed;
        addFault(name + " ended early", escaped(log.substr(Math.max(0, log.length - 4000))));
        suites += "<testsuite name=\"" + name + "\" tests=\"1\" failures=\"0\" errors=\"1\"><testcase classname=\"" + name +
                  "\" name=\"ended early\"><error message=\"" + name + ".log has what it said\"/></testcase></testsuite>\n";
    } else {
        var begin = text.indexOf("<testsuite ");
        if (begin >= 0) {
            suites += text.substring(begin, text.lastIndexOf("</testsuites>"))
                          .replace(/ classname="/g, " classname=\"" + name + ".")
                          .replace(/<testsuite name="/g, "<testsuite name=\"" + name + ".");
        }
    }
    passed += counts.run - counts.failed - counts.skipped;
    failed += counts.failed;
    skipped += counts.skipped;
    rows += "<tr" + (counts.failed ? " class=\"failed\"" : "") + "><td>" + name + "</td><td>" +
            (counts.run - counts.failed - counts.skipped) + "</td><td>" + counts.failed + "</td><td>" + counts.skipped +
            "</td></tr>\n";
}

for (var i = 1; i < WScript.Arguments.length; ++i)
    addProgram(WScript.Arguments(i));

var summary = passed + " passed, " + failed + " failed, " + skipped + " skipped";
writeAll(folder + "\\results.xml",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites tests=\"" + (passed + failed + skipped) + "\" failures=\"" +
             failed + "\" name=\"KivCtls\">\n" + suites + "</testsuites>\n");
writeAll(folder + "\\results.html",
         "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>KivCtls: " + summary + "</title>\n<style>body{font-family:" +
             "sans-serif}td,th{padding:2px 12px;text-align:right}td:first-child,th:first-child{text-align:left}.failed{color:" +
             "#b00}pre{background:#f4f4f4;padding:8px}</style></head><body>\n<h1>" + summary + "</h1>\n<table><tr><th>tests</th>" +
             "<th>passed</th><th>failed</th><th>skipped</th></tr>\n" + rows + "</table>\n" + faults + "</body></html>\n");
WScript.Echo(summary);
WScript.Quit(failed == 0 && passed > 0 ? 0 : 1);
