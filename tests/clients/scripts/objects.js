// Objects where values are expected: each stands for its own value.
function report(name, value) { WScript.Echo(name + " " + value); }

function attempt(name, act) {
    try {
        act();
        report(name, 0);
    } catch (error) {
        report(name, error.number & 0xFFFF);
    }
}

var amount = new ActiveXObject("KivControls.CurrencyBox");
amount.Value = new Number(5);
report("number", amount.Value);
amount.Value = new String("12");
report("text", amount.Value);
amount.MaxValue = new Number(100);
report("bound", amount.MaxValue);

var number = new ActiveXObject("KivControls.NumberBox");
number.Value = new String("123-45-6789");
report("number box", number.Value);
number.Text = new String("987-65-4321");
report("its text", number.Text);
attempt("no number", function () { number.Value = new Object(); });
report("afterwards", number.Value);

var other = new ActiveXObject("KivControls.NumberBox");
other.Value = number;
report("another control", other.Value);

var answer = new ActiveXObject("KivControls.YesNo");
answer.YesText = "true";
answer.Text = new String("true");
report("answer", answer.Value);

var percent = new ActiveXObject("KivControls.PercentBox");
percent.Value = new Number(0.25);
report("percent", percent.Value);

var list = new ActiveXObject("KivControls.EnumList");
list.BoundEnumCode = new Number(7);
report("code", list.EnumCode);

var button = new ActiveXObject("KivControls.PicCommand");
button.BoundDetailStatus = new Number(2);
report("status", button.DetailStatus);

var date = new ActiveXObject("KivControls.DateBox");
date.Value = new String("1/5/2001");
report("date", date.Value);
