// Takes an answer and takes it back, late-bound, as any script host does.
//     cscript //nologo answers.js
var answer = new ActiveXObject("KivControls.YesNo");
answer.Value = 2;
WScript.Echo("chosen: " + answer.Text);
answer.Text = null;
WScript.Echo("taken back: " + answer.Value);
