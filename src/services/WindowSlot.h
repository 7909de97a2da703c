#pragma once
// The one window of a kind that the runtime makes at its first use: touching it creates it and
// runs its load; unloading empties the slot, so the next touch loads a new one.
template <typename Form> class WindowSlot
{
public:
    template <typename Make> Form* Touch(Make make)
    {
        if (!form) {
            form = make();
            form->load();
        }
        return form;
    }
    Form* Loaded() const { return form; }
    // The window to unload, or null; the slot is empty from here on.
    Form* Take()
    {
        Form* taken = form;
        form = nullptr;
        return taken;
    }

    // A window that goes with its owner leaves the slot empty behind it.
    void Forget(const void* gone)
    {
        if (static_cast<const void*>(form) == gone)
            form = nullptr;
    }

private:
    Form* form = nullptr;
};

#include <QCloseEvent>
#include <QDialog>

// A dialog that is the one window of its kind: loaded at its first use, unloaded by Unload, its
// close box or Escape, and gone with the window that owns it. Form declares this its friend, so
// that only Instance makes it.
template <typename Form> class SingleDialog : public QDialog
{
public:
    static Form* Instance(QWidget* owner)
    {
        return slot().Touch([owner] { return new Form(owner); });
    }
    static Form* Loaded() { return slot().Loaded(); }
    static void Unload()
    {
        if (Form* form = slot().Take()) {
            if constexpr (requires { form->onUnload(); })
                form->onUnload();
            form->hide();
            form->deleteLater();
        }
    }
    // Form is the first and only base path here, so both name the same address.
    ~SingleDialog() override { slot().Forget(static_cast<const void*>(this)); }

protected:
    explicit SingleDialog(QWidget* owner)
        : QDialog(owner)
    {
    }
    void closeEvent(QCloseEvent* event) override
    {
        Unload();
        event->accept();
    }
    void reject() override { Unload(); }

private:
    static WindowSlot<Form>& slot()
    {
        static WindowSlot<Form> form;
        return form;
    }
};
