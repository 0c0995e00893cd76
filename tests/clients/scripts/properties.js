// The properties of a YesNo in the other script language.
var answer = new ActiveXObject("KivControls.YesNo");

WScript.Echo("default " + answer.Value + " " + typeof answer.Value);
WScript.Echo("null " + (answer.Text === null));
answer.Value = 1;
WScript.Echo("yes " + answer.Text);
answer.Text = "N";
WScript.Echo("no " + answer.Value);
answer.Text = null;
WScript.Echo("neither " + answer.Value);
answer.NoText = "Nein";
answer.Text = "Nein";
WScript.Echo("renamed " + answer.Value);
answer.Enabled = false;
WScript.Echo("enabled " + answer.Enabled);
answer.DrawFocusState();
answer.DrawFocusState(2);
var refused = "taken";
try {
    answer.Value = "left";
} catch (error) {
    refused = "refused";
}
WScript.Echo("words " + refused + " " + answer.Value);
