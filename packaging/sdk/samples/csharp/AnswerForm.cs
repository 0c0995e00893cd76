// A Windows Forms program with one YesNo. Build it for the architecture of the registered library:
//     csc /platform:x86 /r:System.Windows.Forms.dll /r:Microsoft.CSharp.dll AnswerForm.cs
using System;
using System.Drawing;
using System.Runtime.InteropServices;
using System.Windows.Forms;

// The events of YesNo, by their numbers.
[ComImport, Guid("3E649239-873E-11D3-BB17-00105A16D8EF"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
public interface IYesNoEvents
{
    [DispId(1)]
    void Click([In, Out] ref bool cancel);
    [DispId(2)]
    void Change();
}

public sealed class YesNo : AxHost, IYesNoEvents
{
    private ConnectionPointCookie connection;

    public YesNo() : base("3E649237-873E-11D3-BB17-00105A16D8EF") { }

    public event EventHandler Changed;

    // 1 for yes, 2 for no, 0 for neither.
    public int Value
    {
        get { return (int)((dynamic)GetOcx()).Value; }
        set { ((dynamic)GetOcx()).Value = value; }
    }

    protected override void CreateSink()
    {
        connection = new ConnectionPointCookie(GetOcx(), this, typeof(IYesNoEvents));
    }

    protected override void DetachSink()
    {
        if (connection != null)
            connection.Disconnect();
        connection = null;
    }

    void IYesNoEvents.Click(ref bool cancel) { }

    void IYesNoEvents.Change()
    {
        if (Changed != null)
            Changed(this, EventArgs.Empty);
    }
}

public static class Program
{
    [STAThread]
    public static void Main()
    {
        var form = new Form { Text = "Resident for the whole year?", ClientSize = new Size(320, 80) };
        var answer = new YesNo { Location = new Point(10, 10), Size = new Size(160, 24) };
        answer.Changed += delegate { form.Text = "The answer is " + answer.Value; };
        form.Controls.Add(answer);
        Application.Run(form);
    }
}
