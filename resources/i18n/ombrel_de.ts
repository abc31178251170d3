<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AccountFormDialog</name>
    <message>
        <source>New Account</source>
        <translation>Neues Konto</translation>
    </message>
    <message>
        <source>Edit Account</source>
        <translation>Konto bearbeiten</translation>
    </message>
    <message>
        <source>Account name</source>
        <translation>Kontoname</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Checking</source>
        <translation>Girokonto</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>Sparkonto</translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation>Kreditkarte</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>Bargeld</translation>
    </message>
    <message>
        <source>Investment</source>
        <translation>Depot</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>USD ($)</source>
        <translation>USD ($)</translation>
    </message>
    <message>
        <source>EUR (€)</source>
        <translation>EUR (€)</translation>
    </message>
    <message>
        <source>GBP (£)</source>
        <translation>GBP (£)</translation>
    </message>
    <message>
        <source>CAD ($)</source>
        <translation>CAD ($)</translation>
    </message>
    <message>
        <source>AUD ($)</source>
        <translation>AUD ($)</translation>
    </message>
    <message>
        <source>JPY (¥)</source>
        <translation>JPY (¥)</translation>
    </message>
    <message>
        <source>&amp;Currency:</source>
        <translation>&amp;Währung:</translation>
    </message>
    <message>
        <source>Starting &amp;Balance:</source>
        <translation>&amp;Anfangssaldo:</translation>
    </message>
    <message>
        <source>&amp;As of:</source>
        <translation>&amp;Stand vom:</translation>
    </message>
    <message>
        <source>Bank name (optional)</source>
        <translation>Name der Bank (optional)</translation>
    </message>
    <message>
        <source>&amp;Institution:</source>
        <translation>Kredit&amp;institut:</translation>
    </message>
    <message>
        <source>Last 4 digits (optional)</source>
        <translation>Letzte 4 Ziffern (optional)</translation>
    </message>
    <message>
        <source>Account &amp;Number:</source>
        <translation>Kontonu&amp;mmer:</translation>
    </message>
</context>
<context>
    <name>AccountSharingService</name>
    <message>
        <source>Failed to share account (HTTP %1)</source>
        <translation>Konto konnte nicht freigegeben werden (HTTP %1)</translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>Database Error</source>
        <translation>Datenbankfehler</translation>
    </message>
    <message>
        <source>Failed to initialize the database.

Data directory: %1

Please check file permissions and try again.</source>
        <translation>Die Datenbank konnte nicht initialisiert werden.

Datenverzeichnis: %1

Bitte prüfen Sie die Dateiberechtigungen und versuchen Sie es erneut.</translation>
    </message>
</context>
<context>
    <name>BackupService</name>
    <message>
        <source>Failed to open ZIP archive</source>
        <translation>ZIP-Archiv konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Invalid backup: missing manifest.json</source>
        <translation>Ungültige Sicherung: manifest.json fehlt</translation>
    </message>
    <message>
        <source>Unsupported backup version: %1</source>
        <translation>Nicht unterstützte Sicherungsversion: %1</translation>
    </message>
    <message>
        <source>%1: invalid JSON</source>
        <translation>%1: ungültiges JSON</translation>
    </message>
    <message>
        <source>%1: unexpected error</source>
        <translation>%1: unerwarteter Fehler</translation>
    </message>
</context>
<context>
    <name>CategoriesScreen</name>
    <message>
        <source>Categories</source>
        <translation>Kategorien</translation>
    </message>
    <message>
        <source>Search categories...</source>
        <translation>Kategorien suchen...</translation>
    </message>
    <message>
        <source>+ New Category</source>
        <translation>+ Neue Kategorie</translation>
    </message>
    <message>
        <source>&amp;New Category</source>
        <translation>&amp;Neue Kategorie</translation>
    </message>
    <message>
        <source>Add &amp;Subcategory</source>
        <translation>&amp;Unterkategorie hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Delete Category</source>
        <translation>Kategorie löschen</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;? Transactions using this category will become uncategorized.</source>
        <translation>„%1“ löschen? Buchungen mit dieser Kategorie sind danach ohne Kategorie.</translation>
    </message>
</context>
<context>
    <name>CategoryFormDialog</name>
    <message>
        <source>New Category</source>
        <translation>Neue Kategorie</translation>
    </message>
    <message>
        <source>New Subcategory</source>
        <translation>Neue Unterkategorie</translation>
    </message>
    <message>
        <source>Edit Category</source>
        <translation>Kategorie bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Parent:</source>
        <translation>Über&amp;geordnete Kategorie:</translation>
    </message>
    <message>
        <source>Category name</source>
        <translation>Kategoriename</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Expense</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>Einnahme</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>Tax-relevant</source>
        <translation>Steuerrelevant</translation>
    </message>
    <message>
        <source>Mark this category for inclusion in tax-time reports.</source>
        <translation>Diese Kategorie in Berichte für die Steuererklärung aufnehmen.</translation>
    </message>
    <message>
        <source>e.g. charitable_contributions, mortgage_interest</source>
        <translation>z. B. spenden, hypothekenzinsen</translation>
    </message>
    <message>
        <source>Tax &amp;Code:</source>
        <translation>Steuer&amp;schlüssel:</translation>
    </message>
</context>
<context>
    <name>CategoryService</name>
    <message>
        <source>Salary / Wages</source>
        <translation>Gehalt / Lohn</translation>
    </message>
    <message>
        <source>Housing</source>
        <translation>Wohnen</translation>
    </message>
    <message>
        <source>Rent/Mortgage Payment</source>
        <translation>Miete/Hypothek</translation>
    </message>
    <message>
        <source>Groceries</source>
        <translation>Lebensmittel</translation>
    </message>
    <message>
        <source>Transportation</source>
        <translation>Mobilität</translation>
    </message>
    <message>
        <source>Gas/Fuel</source>
        <translation>Tanken</translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation>Nebenkosten</translation>
    </message>
    <message>
        <source>Electric</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Water</source>
        <translation>Wasser</translation>
    </message>
    <message>
        <source>Entertainment</source>
        <translation>Freizeit</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>Streaming</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Kino</translation>
    </message>
    <message>
        <source>Interest Income</source>
        <translation>Zinserträge</translation>
    </message>
    <message>
        <source>Dining &amp; Restaurants</source>
        <translation>Essen &amp; Restaurants</translation>
    </message>
    <message>
        <source>Subscriptions</source>
        <translation>Abonnements</translation>
    </message>
    <message>
        <source>Personal Care</source>
        <translation>Körperpflege</translation>
    </message>
    <message>
        <source>Pets</source>
        <translation>Haustiere</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>Einkäufe</translation>
    </message>
    <message>
        <source>Clothing</source>
        <translation>Kleidung</translation>
    </message>
    <message>
        <source>Household</source>
        <translation>Haushalt</translation>
    </message>
    <message>
        <source>Gifts</source>
        <translation>Geschenke</translation>
    </message>
    <message>
        <source>Charitable Donations</source>
        <translation>Spenden</translation>
    </message>
    <message>
        <source>Medical Expenses</source>
        <translation>Krankheitskosten</translation>
    </message>
    <message>
        <source>Business Expenses</source>
        <translation>Betriebsausgaben</translation>
    </message>
    <message>
        <source>Home Office</source>
        <translation>Arbeitszimmer</translation>
    </message>
    <message>
        <source>Education Expenses</source>
        <translation>Bildungskosten</translation>
    </message>
    <message>
        <source>State &amp; Local Taxes</source>
        <translation>Landes- &amp; Gemeindesteuern</translation>
    </message>
    <message>
        <source>Mortgage Interest</source>
        <translation>Hypothekenzinsen</translation>
    </message>
    <message>
        <source>Property Tax</source>
        <translation>Grundsteuer</translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation>Instandhaltung</translation>
    </message>
    <message>
        <source>HOA</source>
        <translation>Hausgeld</translation>
    </message>
    <message>
        <source>Gas</source>
        <translation>Gas</translation>
    </message>
    <message>
        <source>Internet</source>
        <translation>Internet</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Car Payment</source>
        <translation>Autokredit</translation>
    </message>
    <message>
        <source>Auto Insurance</source>
        <translation>Kfz-Versicherung</translation>
    </message>
    <message>
        <source>Public Transit</source>
        <translation>ÖPNV</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Veranstaltungen</translation>
    </message>
    <message>
        <source>Electronics</source>
        <translation>Elektronik</translation>
    </message>
    <message>
        <source>Insurance</source>
        <translation>Versicherungen</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>Krankenversicherung</translation>
    </message>
    <message>
        <source>Life</source>
        <translation>Lebensversicherung</translation>
    </message>
    <message>
        <source>Home/Renters</source>
        <translation>Hausrat/Wohngebäude</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Kfz</translation>
    </message>
    <message>
        <source>Fees &amp; Charges</source>
        <translation>Gebühren</translation>
    </message>
    <message>
        <source>Bank Fees</source>
        <translation>Bankgebühren</translation>
    </message>
    <message>
        <source>ATM Fees</source>
        <translation>Geldautomatengebühren</translation>
    </message>
    <message>
        <source>Late Fees</source>
        <translation>Säumnisgebühren</translation>
    </message>
    <message>
        <source>Dividend Income</source>
        <translation>Dividenden</translation>
    </message>
    <message>
        <source>Rental Income</source>
        <translation>Mieteinnahmen</translation>
    </message>
    <message>
        <source>Freelance / Consulting</source>
        <translation>Freiberuflich / Beratung</translation>
    </message>
    <message>
        <source>Refunds</source>
        <translation>Erstattungen</translation>
    </message>
    <message>
        <source>Gifts Received</source>
        <translation>Erhaltene Geschenke</translation>
    </message>
    <message>
        <source>Other Income</source>
        <translation>Sonstige Einnahmen</translation>
    </message>
</context>
<context>
    <name>CategoryTreeModel</name>
    <message>
        <source>income</source>
        <translation>Einnahme</translation>
    </message>
    <message>
        <source>transfer</source>
        <translation>Umbuchung</translation>
    </message>
    <message>
        <source>expense</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Tax Code</source>
        <translation>Steuerschlüssel</translation>
    </message>
</context>
<context>
    <name>DateField</name>
    <message>
        <source>Open calendar (F4)</source>
        <translation>Kalender öffnen (F4)</translation>
    </message>
</context>
<context>
    <name>HalcAccount::AccountScreen</name>
    <message>
        <source>(not set)</source>
        <translation>(nicht festgelegt)</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Security</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>Data &amp; Privacy</source>
        <translation>Daten &amp; Datenschutz</translation>
    </message>
    <message>
        <source>Personal Information</source>
        <translation>Persönliche Daten</translation>
    </message>
    <message>
        <source>Edit Display Name</source>
        <translation>Anzeigenamen bearbeiten</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Change your account password.</source>
        <translation>Ändern Sie das Passwort Ihres Benutzerkontos.</translation>
    </message>
    <message>
        <source>Change Password</source>
        <translation>Passwort ändern</translation>
    </message>
    <message>
        <source>Owner</source>
        <translation>Eigentümer</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>No Group</source>
        <translation>Keine Gruppe</translation>
    </message>
    <message>
        <source>You&apos;re not part of a group. The group owner can invite you, or you can join with an invite code.</source>
        <translation>Sie gehören keiner Gruppe an. Der Eigentümer einer Gruppe kann Sie einladen, oder Sie treten mit einem Einladungscode bei.</translation>
    </message>
    <message>
        <source>Join with Invite Code</source>
        <translation>Mit Einladungscode beitreten</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>Mitglieder</translation>
    </message>
    <message>
        <source>Pending Invitations</source>
        <translation>Offene Einladungen</translation>
    </message>
    <message>
        <source>No pending invitations.</source>
        <translation>Keine offenen Einladungen.</translation>
    </message>
    <message>
        <source>Invite code: %1</source>
        <translation>Einladungscode: %1</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>Widerrufen</translation>
    </message>
    <message>
        <source>Invite Members</source>
        <translation>Mitglieder einladen</translation>
    </message>
    <message>
        <source>Invite by Email</source>
        <translation>Per E-Mail einladen</translation>
    </message>
    <message>
        <source>Generate Invite Code</source>
        <translation>Einladungscode erzeugen</translation>
    </message>
    <message>
        <source>Leave Group</source>
        <translation>Gruppe verlassen</translation>
    </message>
    <message>
        <source>Registered Devices</source>
        <translation>Registrierte Geräte</translation>
    </message>
    <message>
        <source>Devices that have synced with your account.</source>
        <translation>Geräte, die mit Ihrem Benutzerkonto synchronisiert wurden.</translation>
    </message>
    <message>
        <source>No devices registered.</source>
        <translation>Keine Geräte registriert.</translation>
    </message>
    <message>
        <source>Unknown Device</source>
        <translation>Unbekanntes Gerät</translation>
    </message>
    <message>
        <source>  ·  v%1</source>
        <translation>  ·  v%1</translation>
    </message>
    <message>
        <source>Active Sessions</source>
        <translation>Aktive Sitzungen</translation>
    </message>
    <message>
        <source>Sessions currently signed in to your account.</source>
        <translation>Sitzungen, die derzeit bei Ihrem Benutzerkonto angemeldet sind.</translation>
    </message>
    <message>
        <source>No active sessions.</source>
        <translation>Keine aktiven Sitzungen.</translation>
    </message>
    <message>
        <source>Unknown client</source>
        <translation>Unbekannter Client</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Aktuell</translation>
    </message>
    <message>
        <source>  ·  %1</source>
        <translation>  ·  %1</translation>
    </message>
    <message>
        <source>This session</source>
        <translation>Diese Sitzung</translation>
    </message>
    <message>
        <source>Danger Zone</source>
        <translation>Gefahrenbereich</translation>
    </message>
    <message>
        <source>Permanently delete your account. This cannot be undone after 30 days.</source>
        <translation>Ihr Benutzerkonto endgültig löschen. Nach 30 Tagen kann dies nicht mehr rückgängig gemacht werden.</translation>
    </message>
    <message>
        <source>Delete Account</source>
        <translation>Benutzerkonto löschen</translation>
    </message>
    <message>
        <source>You are the group owner. Transfer ownership or remove all members before deleting your account.</source>
        <translation>Sie sind der Eigentümer der Gruppe. Übertragen Sie die Eigentümerschaft oder entfernen Sie alle Mitglieder, bevor Sie Ihr Benutzerkonto löschen.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Active now</source>
        <translation>Jetzt aktiv</translation>
    </message>
    <message>
        <source>%1m ago</source>
        <translation>vor %1 Min.</translation>
    </message>
    <message>
        <source>%1h ago</source>
        <translation>vor %1 Std.</translation>
    </message>
    <message>
        <source>%1d ago</source>
        <translation>vor %1 T.</translation>
    </message>
    <message>
        <source>Display name:</source>
        <translation>Anzeigename:</translation>
    </message>
    <message>
        <source>Display name updated.</source>
        <translation>Anzeigename aktualisiert.</translation>
    </message>
    <message>
        <source>Failed to update profile.</source>
        <translation>Profil konnte nicht aktualisiert werden.</translation>
    </message>
    <message>
        <source>Current password:</source>
        <translation>Aktuelles Passwort:</translation>
    </message>
    <message>
        <source>New password (min 8 characters):</source>
        <translation>Neues Passwort (mind. 8 Zeichen):</translation>
    </message>
    <message>
        <source>Password must be at least 8 characters.</source>
        <translation>Das Passwort muss mindestens 8 Zeichen lang sein.</translation>
    </message>
    <message>
        <source>Confirm new password:</source>
        <translation>Neues Passwort bestätigen:</translation>
    </message>
    <message>
        <source>Passwords do not match.</source>
        <translation>Die Passwörter stimmen nicht überein.</translation>
    </message>
    <message>
        <source>Password changed.</source>
        <translation>Passwort geändert.</translation>
    </message>
    <message>
        <source>Failed to change password.</source>
        <translation>Passwort konnte nicht geändert werden.</translation>
    </message>
    <message>
        <source>Join Group</source>
        <translation>Gruppe beitreten</translation>
    </message>
    <message>
        <source>Enter invite code:</source>
        <translation>Einladungscode eingeben:</translation>
    </message>
    <message>
        <source>Joined group.</source>
        <translation>Der Gruppe beigetreten.</translation>
    </message>
    <message>
        <source>Invalid or expired invite code.</source>
        <translation>Ungültiger oder abgelaufener Einladungscode.</translation>
    </message>
    <message>
        <source>Remove Member</source>
        <translation>Mitglied entfernen</translation>
    </message>
    <message>
        <source>Remove %1 from the group?</source>
        <translation>%1 aus der Gruppe entfernen?</translation>
    </message>
    <message>
        <source>%1 removed.</source>
        <translation>%1 wurde entfernt.</translation>
    </message>
    <message>
        <source>Leave this group? You will lose access to shared data.</source>
        <translation>Diese Gruppe verlassen? Sie verlieren den Zugriff auf gemeinsam genutzte Daten.</translation>
    </message>
    <message>
        <source>Left group.</source>
        <translation>Gruppe verlassen.</translation>
    </message>
    <message>
        <source>Invitation revoked.</source>
        <translation>Einladung widerrufen.</translation>
    </message>
    <message>
        <source>Email address:</source>
        <translation>E-Mail-Adresse:</translation>
    </message>
    <message>
        <source>Failed to send invitation.</source>
        <translation>Einladung konnte nicht gesendet werden.</translation>
    </message>
    <message>
        <source>Invitation sent.</source>
        <translation>Einladung gesendet.</translation>
    </message>
    <message>
        <source>Failed to generate code.</source>
        <translation>Code konnte nicht erzeugt werden.</translation>
    </message>
    <message>
        <source>Invite Code</source>
        <translation>Einladungscode</translation>
    </message>
    <message>
        <source>Share this code with the person you want to invite:

%1</source>
        <translation>Geben Sie diesen Code an die Person weiter, die Sie einladen möchten:

%1</translation>
    </message>
    <message>
        <source>Remove Device</source>
        <translation>Gerät entfernen</translation>
    </message>
    <message>
        <source>Remove %1?</source>
        <translation>%1 entfernen?</translation>
    </message>
    <message>
        <source>Device removed.</source>
        <translation>Gerät entfernt.</translation>
    </message>
    <message>
        <source>Session revoked.</source>
        <translation>Sitzung widerrufen.</translation>
    </message>
    <message>
        <source>This will schedule your account for permanent deletion after 30 days.

Type DELETE to confirm:</source>
        <translation>Ihr Benutzerkonto wird damit zur endgültigen Löschung nach 30 Tagen vorgemerkt.

Geben Sie zur Bestätigung DELETE ein:</translation>
    </message>
    <message>
        <source>Failed to delete account.</source>
        <translation>Benutzerkonto konnte nicht gelöscht werden.</translation>
    </message>
    <message>
        <source>Account Scheduled for Deletion</source>
        <translation>Benutzerkonto zur Löschung vorgemerkt</translation>
    </message>
    <message>
        <source>Your account will be permanently deleted in 30 days. You can recover it by signing in before then.</source>
        <translation>Ihr Benutzerkonto wird in 30 Tagen endgültig gelöscht. Wenn Sie sich vorher anmelden, können Sie es wiederherstellen.</translation>
    </message>
</context>
<context>
    <name>HalcAccount::ShareMembersDialog</name>
    <message>
        <source>Share Account</source>
        <translation>Konto freigeben</translation>
    </message>
    <message>
        <source>People with access</source>
        <translation>Personen mit Zugriff</translation>
    </message>
    <message>
        <source>Add people</source>
        <translation>Personen hinzufügen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Wird geladen...</translation>
    </message>
    <message>
        <source>Owner</source>
        <translation>Eigentümer</translation>
    </message>
    <message>
        <source>Remove access</source>
        <translation>Zugriff entfernen</translation>
    </message>
    <message>
        <source>Not shared with anyone yet.</source>
        <translation>Noch für niemanden freigegeben.</translation>
    </message>
    <message>
        <source>You&apos;re not in a family group yet. Sharing needs one: invite someone from your Halcyra account&apos;s Group page, or join with an invite code.</source>
        <translation>Sie gehören noch keiner Familiengruppe an. Zum Freigeben wird eine benötigt: Laden Sie jemanden über die Seite „Gruppe“ Ihres Halcyra-Benutzerkontos ein oder treten Sie mit einem Einladungscode bei.</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>All group members already have access</source>
        <translation>Alle Gruppenmitglieder haben bereits Zugriff</translation>
    </message>
    <message>
        <source>Share Failed</source>
        <translation>Freigabe fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not share with %1.</source>
        <translation>Freigabe für %1 nicht möglich.</translation>
    </message>
    <message>
        <source>%1 will no longer have access. Continue?</source>
        <translation>%1 hat dann keinen Zugriff mehr. Fortfahren?</translation>
    </message>
    <message>
        <source>Remove access?</source>
        <translation>Zugriff entfernen?</translation>
    </message>
    <message>
        <source>Remove Failed</source>
        <translation>Entfernen fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not remove %1.</source>
        <translation>%1 konnte nicht entfernt werden.</translation>
    </message>
</context>
<context>
    <name>HalcUpdate</name>
    <message>
        <source>Loading release notes…</source>
        <translation>Versionshinweise werden geladen…</translation>
    </message>
    <message>
        <source>*Release notes are not available for this version.*</source>
        <translation>*Für diese Version sind keine Versionshinweise verfügbar.*</translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation>Suche nach Updates…</translation>
    </message>
    <message>
        <source>%1 is up to date (version %2)</source>
        <translation>%1 ist auf dem neuesten Stand (Version %2)</translation>
    </message>
    <message>
        <source>Update check failed: %1</source>
        <translation>Suche nach Updates fehlgeschlagen: %1</translation>
    </message>
</context>
<context>
    <name>HalcUpdate::UpdateDialog</name>
    <message>
        <source>Update available</source>
        <translation>Update verfügbar</translation>
    </message>
    <message>
        <source>A new version of %1 is available.</source>
        <translation>Eine neue Version von %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>You have version %1. The latest version is %2.</source>
        <translation>Sie haben Version %1. Die neueste Version ist %2.</translation>
    </message>
    <message>
        <source>Loading release notes…</source>
        <translation>Versionshinweise werden geladen…</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>*Release notes are not available for this version.*</source>
        <translation>*Für diese Version sind keine Versionshinweise verfügbar.*</translation>
    </message>
</context>
<context>
    <name>HalcUpdate::WhatsNewDialog</name>
    <message>
        <source>What&apos;s New in %1 %2</source>
        <translation>Neu in %1 %2</translation>
    </message>
    <message>
        <source>What&apos;s new in %1 %2</source>
        <translation>Neu in %1 %2</translation>
    </message>
    <message>
        <source>You are running version %1</source>
        <translation>Sie verwenden Version %1</translation>
    </message>
    <message>
        <source>Download %1</source>
        <translation>%1 herunterladen</translation>
    </message>
</context>
<context>
    <name>ImportScreen</name>
    <message>
        <source>Import Transactions</source>
        <translation>Buchungen importieren</translation>
    </message>
    <message>
        <source>CSV</source>
        <translation>CSV</translation>
    </message>
    <message>
        <source>QIF</source>
        <translation>QIF</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>&amp;Account:</source>
        <translation>&amp;Konto:</translation>
    </message>
    <message>
        <source>No file selected</source>
        <translation>Keine Datei ausgewählt</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>Datei:</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>CSV Column Mapping:</source>
        <translation>CSV-Spaltenzuordnung:</translation>
    </message>
    <message>
        <source>Auto-detect</source>
        <translation>Automatisch erkennen</translation>
    </message>
    <message>
        <source>Date column:</source>
        <translation>Datumsspalte:</translation>
    </message>
    <message>
        <source>Payee column:</source>
        <translation>Empfängerspalte:</translation>
    </message>
    <message>
        <source>Amount column:</source>
        <translation>Betragsspalte:</translation>
    </message>
    <message>
        <source>Memo column:</source>
        <translation>Notizspalte:</translation>
    </message>
    <message>
        <source>Category column:</source>
        <translation>Kategoriespalte:</translation>
    </message>
    <message>
        <source>Date format:</source>
        <translation>Datumsformat:</translation>
    </message>
    <message>
        <source>First row is header</source>
        <translation>Erste Zeile ist Kopfzeile</translation>
    </message>
    <message>
        <source>QIF source accounts:</source>
        <translation>QIF-Quellkonten:</translation>
    </message>
    <message>
        <source>Choose where each Quicken account should be imported. Accounts mapped across the selected files will have their transfers linked automatically.</source>
        <translation>Wählen Sie, wohin jedes Quicken-Konto importiert werden soll. Umbuchungen zwischen Konten, die in den ausgewählten Dateien zugeordnet sind, werden automatisch verknüpft.</translation>
    </message>
    <message>
        <source>Select File</source>
        <translation>Datei auswählen</translation>
    </message>
    <message>
        <source>CSV Files (*.csv);;All Files (*)</source>
        <translation>CSV-Dateien (*.csv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Select QIF File(s)</source>
        <translation>QIF-Datei(en) auswählen</translation>
    </message>
    <message>
        <source>QIF Files (*.qif)</source>
        <translation>QIF-Dateien (*.qif)</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) selected</source>
        <translation>
            <numerusform>%n Datei ausgewählt</numerusform>
            <numerusform>%n Dateien ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Analyzing QIF file(s)...</source>
        <translation>QIF-Datei(en) werden analysiert...</translation>
    </message>
    <message>
        <source>Col %1: %2</source>
        <translation>Sp. %1: %2</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Col %1</source>
        <translation>Sp. %1</translation>
    </message>
    <message>
        <source>— Create new account &quot;%1&quot; —</source>
        <translation>— Neues Konto „%1“ anlegen —</translation>
    </message>
    <message>
        <source>— Skip these transactions —</source>
        <translation>— Diese Buchungen überspringen —</translation>
    </message>
    <message>
        <source>No target account</source>
        <translation>Kein Zielkonto</translation>
    </message>
    <message>
        <source>Pick an account to import into, or create one now.</source>
        <translation>Wählen Sie ein Konto für den Import oder legen Sie jetzt eines an.</translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation>Anfangssaldo</translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation>Wird importiert...</translation>
    </message>
    <message>
        <source>Import failed.</source>
        <translation>Import fehlgeschlagen.</translation>
    </message>
    <message>
        <source>A database error stopped the import and all changes were rolled back. No transactions were added.</source>
        <translation>Ein Datenbankfehler hat den Import abgebrochen; alle Änderungen wurden zurückgenommen. Es wurden keine Buchungen hinzugefügt.</translation>
    </message>
    <message>
        <source>Import complete!</source>
        <translation>Import abgeschlossen!</translation>
    </message>
    <message numerus="yes">
        <source>%n transaction(s) imported</source>
        <translation>
            <numerusform>%n Buchung importiert</numerusform>
            <numerusform>%n Buchungen importiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n transfer(s) linked across accounts</source>
        <translation>
            <numerusform>%n Umbuchung zwischen Konten verknüpft</numerusform>
            <numerusform>%n Umbuchungen zwischen Konten verknüpft</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>  (including %n linked to previously imported row(s))</source>
        <translation>
            <numerusform>  (davon %n mit einer früher importierten Zeile verknüpft)</numerusform>
            <numerusform>  (davon %n mit früher importierten Zeilen verknüpft)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n duplicate(s) skipped</source>
        <translation>
            <numerusform>%n Duplikat übersprungen</numerusform>
            <numerusform>%n Duplikate übersprungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (unparseable)</source>
        <translation>
            <numerusform>%n Datensatz übersprungen (nicht lesbar)</numerusform>
            <numerusform>%n Datensätze übersprungen (nicht lesbar)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n metadata record(s) skipped</source>
        <translation>
            <numerusform>%n Metadatensatz übersprungen</numerusform>
            <numerusform>%n Metadatensätze übersprungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (unmapped source account)</source>
        <translation>
            <numerusform>%n Datensatz übersprungen (Quellkonto nicht zugeordnet)</numerusform>
            <numerusform>%n Datensätze übersprungen (Quellkonto nicht zugeordnet)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (database error — see log)</source>
        <translation>
            <numerusform>%n Datensatz übersprungen (Datenbankfehler – siehe Protokoll)</numerusform>
            <numerusform>%n Datensätze übersprungen (Datenbankfehler – siehe Protokoll)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be opened</source>
        <translation>
            <numerusform>%n Datei konnte nicht geöffnet werden</numerusform>
            <numerusform>%n Dateien konnten nicht geöffnet werden</numerusform>
        </translation>
    </message>
    <message>
        <source>File Not Imported</source>
        <translation>Datei nicht importiert</translation>
    </message>
    <message>
        <source>Header</source>
        <translation>Kopfzeile</translation>
    </message>
    <message>
        <source>Column names: this row is not imported</source>
        <translation>Spaltennamen: Diese Zeile wird nicht importiert</translation>
    </message>
    <message numerus="yes">
        <source>%n split line(s) left out (no category)</source>
        <translation>
            <numerusform>%n Aufteilungszeile ausgelassen (keine Kategorie)</numerusform>
            <numerusform>%n Aufteilungszeilen ausgelassen (keine Kategorie)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportService</name>
    <message>
        <source>Imported transaction</source>
        <translation>Importierte Buchung</translation>
    </message>
    <message>
        <source>%1 (no account header)</source>
        <translation>%1 (ohne Kontokopf)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported: one of its rows is longer than %2 characters or %3 fields. The file may be damaged, or it is no CSV file.</source>
        <translation>„%1“ wurde nicht importiert: Eine Zeile ist länger als %2 Zeichen oder hat mehr als %3 Felder. Die Datei ist vielleicht beschädigt oder keine CSV-Datei.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported: it contains a NUL character, which no CSV or QIF file holds. The file may be damaged, or it is of another kind.</source>
        <translation>„%1“ wurde nicht importiert: Sie enthält ein NUL-Zeichen, das in keiner CSV- oder QIF-Datei vorkommt. Die Datei ist vielleicht beschädigt oder von anderer Art.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Halcyra Ombrel</source>
        <translation>Halcyra Ombrel</translation>
    </message>
    <message>
        <source>Checking</source>
        <translation>Girokonto</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>Sparkonto</translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation>Kreditkarte</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>Bargeld</translation>
    </message>
    <message>
        <source>Investment</source>
        <translation>Depot</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message numerus="yes">
        <source>Auto-posted %n recurring transaction(s)</source>
        <translation>
            <numerusform>%n wiederkehrende Buchung automatisch gebucht</numerusform>
            <numerusform>%n wiederkehrende Buchungen automatisch gebucht</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New Transaction</source>
        <translation>&amp;Neue Buchung</translation>
    </message>
    <message>
        <source>New &amp;Account</source>
        <translation>Neues &amp;Konto</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>Halcyra &amp;Account...</source>
        <translation>Halcyra-Kon&amp;to...</translation>
    </message>
    <message>
        <source>Sign &amp;Out</source>
        <translation>&amp;Abmelden</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>&amp;Preferences...</source>
        <translation>&amp;Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;Account</source>
        <translation>&amp;Konto</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Reconcile...</source>
        <translation>&amp;Abgleichen...</translation>
    </message>
    <message>
        <source>Reconciliation &amp;History...</source>
        <translation>Abgleich-&amp;Verlauf...</translation>
    </message>
    <message>
        <source>Rename &amp;Payees...</source>
        <translation>&amp;Empfänger umbenennen...</translation>
    </message>
    <message>
        <source>&amp;Share...</source>
        <translation>&amp;Freigeben...</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Reports</source>
        <translation>&amp;Berichte</translation>
    </message>
    <message>
        <source>Re&amp;curring Transactions</source>
        <translation>&amp;Wiederkehrende Buchungen</translation>
    </message>
    <message>
        <source>C&amp;ategories</source>
        <translation>&amp;Kategorien</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Halcyra Ombrel</source>
        <translation>Ü&amp;ber Halcyra Ombrel</translation>
    </message>
    <message>
        <source>What&apos;s &amp;New...</source>
        <translation>&amp;Neuigkeiten...</translation>
    </message>
    <message>
        <source>Check for &amp;Updates...</source>
        <translation>Nach &amp;Updates suchen...</translation>
    </message>
    <message>
        <source>Send &amp;Feedback...</source>
        <translation>&amp;Feedback senden...</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>Load &amp;Sample Data</source>
        <translation>Beispieldaten &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Clear Sample Data</source>
        <translation>Beispieldaten &amp;entfernen</translation>
    </message>
    <message>
        <source>Welcome to Halcyra Ombrel</source>
        <translation>Willkommen bei Halcyra Ombrel</translation>
    </message>
    <message>
        <source>Create your first account to get started.</source>
        <translation>Legen Sie Ihr erstes Konto an, um zu beginnen.</translation>
    </message>
    <message>
        <source>Create Account</source>
        <translation>Konto anlegen</translation>
    </message>
    <message>
        <source>You can also import transactions from a CSV file via File › Import.</source>
        <translation>Sie können Buchungen auch über Datei › Importieren aus einer CSV-Datei übernehmen.</translation>
    </message>
    <message>
        <source>No accounts</source>
        <translation>Keine Konten</translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation>Summe: %1</translation>
    </message>
    <message>
        <source>Sign in or sign up</source>
        <translation>Anmelden oder registrieren</translation>
    </message>
    <message>
        <source>Not signed in</source>
        <translation>Nicht angemeldet</translation>
    </message>
    <message>
        <source>Select an account first</source>
        <translation>Wählen Sie zuerst ein Konto</translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation>Anfangssaldo</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Search Transactions</source>
        <translation>Buchungen suchen</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Kategorien</translation>
    </message>
    <message>
        <source>Payee Management</source>
        <translation>Empfängerverwaltung</translation>
    </message>
    <message>
        <source>Import Transactions</source>
        <translation>Buchungen importieren</translation>
    </message>
    <message>
        <source>Recurring Transactions</source>
        <translation>Wiederkehrende Buchungen</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Reconcile — %1</source>
        <translation>Abgleich – %1</translation>
    </message>
    <message>
        <source>Reconciliation History</source>
        <translation>Abgleich-Verlauf</translation>
    </message>
    <message>
        <source>Sign In Required</source>
        <translation>Anmeldung erforderlich</translation>
    </message>
    <message>
        <source>Sharing requires a Halcyra account.</source>
        <translation>Zum Freigeben ist ein Halcyra-Konto nötig.</translation>
    </message>
    <message>
        <source>New Account...</source>
        <translation>Neues Konto...</translation>
    </message>
    <message>
        <source>Edit &quot;%1&quot;...</source>
        <translation>„%1“ bearbeiten...</translation>
    </message>
    <message>
        <source>Reconcile...</source>
        <translation>Abgleichen...</translation>
    </message>
    <message>
        <source>Reconciliation History...</source>
        <translation>Abgleich-Verlauf...</translation>
    </message>
    <message>
        <source>Rename Payees...</source>
        <translation>Empfänger umbenennen...</translation>
    </message>
    <message>
        <source>Share...</source>
        <translation>Freigeben...</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;</source>
        <translation>„%1“ löschen</translation>
    </message>
    <message>
        <source>Delete Account</source>
        <translation>Benutzerkonto löschen</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;?

All transactions, recurring entries, and reconciliation history for this account will be removed. You can restore it from Preferences → Data &amp; Sync.</source>
        <translation>„%1“ löschen?

Alle Buchungen, wiederkehrenden Buchungen und der Abgleich-Verlauf dieses Kontos werden entfernt. Sie können es unter Einstellungen → Daten &amp; Synchronisierung wiederherstellen.</translation>
    </message>
    <message>
        <source>About Halcyra Ombrel</source>
        <translation>Über Halcyra Ombrel</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Halcyra Ombrel&lt;/h2&gt;&lt;p&gt;Version %1&lt;/p&gt;&lt;p&gt;A digital ombrel register for tracking household finances.&lt;/p&gt;&lt;p&gt;© 2026 Halcyra. All rights reserved.&lt;br&gt;https://halcyra.com&lt;/p&gt;&lt;p&gt;&lt;small&gt;Built with the Qt framework, used under the GNU LGPL version 3.&lt;/small&gt;&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Halcyra Ombrel&lt;/h2&gt;&lt;p&gt;Version %1&lt;/p&gt;&lt;p&gt;Ein digitales Ombrel-Kontobuch für die Finanzen des Haushalts.&lt;/p&gt;&lt;p&gt;© 2026 Halcyra. Alle Rechte vorbehalten.&lt;br&gt;https://halcyra.com&lt;/p&gt;&lt;p&gt;&lt;small&gt;Erstellt mit dem Qt-Framework, verwendet unter der GNU LGPL Version 3.&lt;/small&gt;&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Register&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%1&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Save transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%2&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Insert new transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%3&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Delete current transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Tab / Shift+Tab&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Next / previous field&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;&apos; (apostrophe)&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Copy value from field above&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Date Field&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;t&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Today&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;+ / -&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Next / previous day&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;m / h&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of month&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;y / r&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of year&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;w / k&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of week&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;General&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%4&lt;/b&gt;&lt;/td&gt;&lt;td&gt;New transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;New account&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%6&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Reconcile account&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%7&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Search transactions&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%8&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Import&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Reports&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%10&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Recurring transactions&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%11&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Categories&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Accounts&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%12 &amp;ndash; %13&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Switch to account 1&amp;ndash;9&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%14&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Switch to account 10&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</source>
        <translation>&lt;h3&gt;Kontobuch&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%1&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Buchung speichern&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%2&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Neue Buchung einfügen&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%3&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Aktuelle Buchung löschen&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Tab / Umschalt+Tab&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Nächstes / vorheriges Feld&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;&apos; (Apostroph)&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Wert aus dem Feld darüber übernehmen&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Datumsfeld&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;t&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Heute&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;+ / -&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Nächster / vorheriger Tag&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;m / h&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Erster / letzter Tag des Monats&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;y / r&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Erster / letzter Tag des Jahres&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;w / k&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Erster / letzter Tag der Woche&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Allgemein&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%4&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Neue Buchung&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Neues Konto&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%6&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Konto abgleichen&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%7&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Buchungen suchen&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%8&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Importieren&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Berichte&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%10&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Wiederkehrende Buchungen&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%11&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Kategorien&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Konten&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%12 &amp;ndash; %13&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Zu Konto 1&amp;ndash;9 wechseln&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%14&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Zu Konto 10 wechseln&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Sample Data</source>
        <translation>Beispieldaten</translation>
    </message>
    <message>
        <source>Sample data is already loaded.</source>
        <translation>Die Beispieldaten sind bereits geladen.</translation>
    </message>
    <message>
        <source>Sample data loaded</source>
        <translation>Beispieldaten geladen</translation>
    </message>
    <message>
        <source>No sample data to clear.</source>
        <translation>Keine Beispieldaten zum Entfernen.</translation>
    </message>
    <message>
        <source>Sample data cleared</source>
        <translation>Beispieldaten entfernt</translation>
    </message>
    <message>
        <source>Signed in successfully</source>
        <translation>Erfolgreich angemeldet</translation>
    </message>
    <message>
        <source>Sign-in failed: %1</source>
        <translation>Anmeldung fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Manage your account</source>
        <translation>Konto verwalten</translation>
    </message>
    <message>
        <source>Halcyra Account</source>
        <translation>Halcyra-Konto</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Mehr erfahren</translation>
    </message>
    <message>
        <source>Sync complete</source>
        <translation>Synchronisierung abgeschlossen</translation>
    </message>
    <message>
        <source>Sync failed: %1</source>
        <translation>Synchronisierung fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Share Account</source>
        <translation>Konto freigeben</translation>
    </message>
    <message>
        <source>Sharing: %1</source>
        <translation>Freigabe: %1</translation>
    </message>
    <message>
        <source>Share this account with members of your Halcyra family group. They&apos;ll see the same register, balances, and reconciliation history on their devices.</source>
        <translation>Geben Sie dieses Konto für Mitglieder Ihrer Halcyra-Familiengruppe frei. Sie sehen auf ihren Geräten dasselbe Kontobuch, dieselben Salden und denselben Abgleichverlauf.</translation>
    </message>
    <message>
        <source>Shared with</source>
        <translation>Freigegeben für</translation>
    </message>
    <message>
        <source>Not shared with anyone yet.</source>
        <translation>Noch für niemanden freigegeben.</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Remove access</source>
        <translation>Zugriff entfernen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Share Failed</source>
        <translation>Freigabe fehlgeschlagen</translation>
    </message>
    <message>
        <source>Remove Failed</source>
        <translation>Entfernen fehlgeschlagen</translation>
    </message>
    <message>
        <source>Remove Share</source>
        <translation>Freigabe entfernen</translation>
    </message>
    <message>
        <source>Remove %1&apos;s access to this account?</source>
        <translation>Zugriff von %1 auf dieses Konto entfernen?</translation>
    </message>
    <message>
        <source>You don&apos;t have a family group yet. Sharing works within a family group: open Halcyra Account, Group, to invite someone or to join with an invite code.</source>
        <translation>Sie haben noch keine Familiengruppe. Freigaben funktionieren innerhalb einer Familiengruppe: Öffnen Sie „Halcyra-Benutzerkonto“ &gt; „Gruppe“, um jemanden einzuladen oder mit einem Einladungscode beizutreten.</translation>
    </message>
</context>
<context>
    <name>PayeeScreen</name>
    <message>
        <source>Payee Management</source>
        <translation>Empfängerverwaltung</translation>
    </message>
    <message>
        <source>Rename to:</source>
        <translation>Umbenennen in:</translation>
    </message>
    <message>
        <source>Rename Selected</source>
        <translation>Auswahl umbenennen</translation>
    </message>
    <message>
        <source>Merge Selected</source>
        <translation>Auswahl zusammenführen</translation>
    </message>
    <message>
        <source>Rename Complete</source>
        <translation>Umbenennen abgeschlossen</translation>
    </message>
    <message numerus="yes">
        <source>Renamed %n transaction(s).</source>
        <translation>
            <numerusform>%n Buchung umbenannt.</numerusform>
            <numerusform>%n Buchungen umbenannt.</numerusform>
        </translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Zusammenführen</translation>
    </message>
    <message>
        <source>Select 2 or more payees to merge.</source>
        <translation>Wählen Sie mindestens 2 Empfänger zum Zusammenführen.</translation>
    </message>
    <message>
        <source>Merge Payees</source>
        <translation>Empfänger zusammenführen</translation>
    </message>
    <message>
        <source>Merge %1 payees into &quot;%2&quot;?</source>
        <translation>%1 Empfänger zu „%2“ zusammenführen?</translation>
    </message>
    <message>
        <source>Merge Complete</source>
        <translation>Zusammenführen abgeschlossen</translation>
    </message>
    <message numerus="yes">
        <source>Merged %n transaction(s).</source>
        <translation>
            <numerusform>%n Buchung zusammengeführt.</numerusform>
            <numerusform>%n Buchungen zusammengeführt.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ReconciliationHistoryScreen</name>
    <message>
        <source>Reconciliation History</source>
        <translation>Abgleich-Verlauf</translation>
    </message>
    <message>
        <source>Past reconciliations for this account.</source>
        <translation>Frühere Abgleiche dieses Kontos.</translation>
    </message>
    <message>
        <source>Statement Date</source>
        <translation>Auszugsdatum</translation>
    </message>
    <message>
        <source>Statement Balance</source>
        <translation>Saldo laut Auszug</translation>
    </message>
    <message>
        <source>Reconciled Balance</source>
        <translation>Abgeglichener Saldo</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Abgeschlossen</translation>
    </message>
    <message>
        <source>No reconciliations yet. Reconcile your account from the register to see the history here.</source>
        <translation>Noch keine Abgleiche. Gleichen Sie das Konto im Kontobuch ab, dann erscheint hier der Verlauf.</translation>
    </message>
    <message>
        <source>Reconciliation History — %1</source>
        <translation>Abgleich-Verlauf – %1</translation>
    </message>
</context>
<context>
    <name>ReconciliationScreen</name>
    <message>
        <source>Reconcile Account</source>
        <translation>Konto abgleichen</translation>
    </message>
    <message>
        <source>Statement Date:</source>
        <translation>Auszugsdatum:</translation>
    </message>
    <message>
        <source>Statement Balance:</source>
        <translation>Saldo laut Auszug:</translation>
    </message>
    <message>
        <source>Previous Balance</source>
        <translation>Vorheriger Saldo</translation>
    </message>
    <message>
        <source>Cleared Deposits</source>
        <translation>Bestätigte Eingänge</translation>
    </message>
    <message>
        <source>Cleared Withdrawals</source>
        <translation>Bestätigte Ausgänge</translation>
    </message>
    <message>
        <source>Cleared Balance</source>
        <translation>Bestätigter Saldo</translation>
    </message>
    <message>
        <source>Statement Balance</source>
        <translation>Saldo laut Auszug</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Finish Reconciliation</source>
        <translation>Abgleich abschließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Clr</source>
        <translation>✓</translation>
    </message>
    <message>
        <source>Add Transaction</source>
        <translation>Buchung hinzufügen</translation>
    </message>
    <message>
        <source>Add a transaction (%1)</source>
        <translation>Buchung hinzufügen (%1)</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Edit selected transaction (F2)</source>
        <translation>Ausgewählte Buchung bearbeiten (F2)</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete selected transaction (Del)</source>
        <translation>Ausgewählte Buchung löschen (Entf)</translation>
    </message>
    <message>
        <source>Reconciliation Complete</source>
        <translation>Abgleich abgeschlossen</translation>
    </message>
    <message>
        <source>Account reconciled successfully.</source>
        <translation>Das Konto wurde erfolgreich abgeglichen.</translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation>Buchung löschen</translation>
    </message>
    <message>
        <source>Delete the transaction for %1?</source>
        <translation>Die Buchung über %1 löschen?</translation>
    </message>
</context>
<context>
    <name>RecurringFormDialog</name>
    <message>
        <source>New Recurring Transaction</source>
        <translation>Neue wiederkehrende Buchung</translation>
    </message>
    <message>
        <source>Edit Recurring Transaction</source>
        <translation>Wiederkehrende Buchung bearbeiten</translation>
    </message>
    <message>
        <source>Memorize Transaction</source>
        <translation>Als wiederkehrend speichern</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>Konto:</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>Einzahlung</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Art:</translation>
    </message>
    <message>
        <source>Start typing to search payees...</source>
        <translation>Tippen, um Empfänger zu suchen...</translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation>Empfänger:</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Betrag:</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>Optional</translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation>Notiz:</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Bi-weekly</source>
        <translation>Zweiwöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>Vierteljährlich</translation>
    </message>
    <message>
        <source>Semi-annual</source>
        <translation>Halbjährlich</translation>
    </message>
    <message>
        <source>Annual</source>
        <translation>Jährlich</translation>
    </message>
    <message>
        <source>Frequency:</source>
        <translation>Intervall:</translation>
    </message>
    <message>
        <source>Start Date:</source>
        <translation>Beginn:</translation>
    </message>
    <message>
        <source>Has end date</source>
        <translation>Mit Enddatum</translation>
    </message>
    <message>
        <source>End Date:</source>
        <translation>Ende:</translation>
    </message>
    <message>
        <source>Auto-post when due</source>
        <translation>Bei Fälligkeit automatisch buchen</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
</context>
<context>
    <name>RecurringModel</name>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Bi-weekly</source>
        <translation>Zweiwöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>Vierteljährlich</translation>
    </message>
    <message>
        <source>Semi-annual</source>
        <translation>Halbjährlich</translation>
    </message>
    <message>
        <source>Annual</source>
        <translation>Jährlich</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Inactive</source>
        <translation>Inaktiv</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Intervall</translation>
    </message>
    <message>
        <source>Next Due</source>
        <translation>Nächste Fälligkeit</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>RecurringScreen</name>
    <message>
        <source>Recurring Transactions</source>
        <translation>Wiederkehrende Buchungen</translation>
    </message>
    <message>
        <source>Confirm All Due</source>
        <translation>Alle fälligen bestätigen</translation>
    </message>
    <message>
        <source>New Recurring</source>
        <translation>Neue wiederkehrende</translation>
    </message>
    <message>
        <source>(%1 due)</source>
        <translation>(%1 fällig)</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete recurring &quot;%1&quot;?</source>
        <translation>Wiederkehrende Buchung „%1“ löschen?</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Confirm</source>
        <translation>B&amp;estätigen</translation>
    </message>
    <message>
        <source>&amp;Skip</source>
        <translation>&amp;Überspringen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>RegisterDelegate</name>
    <message>
        <source>[Transfer] %1</source>
        <translation>[Umbuchung] %1</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>Notiz</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>—Split—</source>
        <translation>—Aufgeteilt—</translation>
    </message>
    <message>
        <source>Payee / Memo</source>
        <translation>Empfänger / Notiz</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Chk #</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>Einzahlung</translation>
    </message>
    <message>
        <source>Clr</source>
        <translation>✓</translation>
    </message>
</context>
<context>
    <name>RegisterScreen</name>
    <message>
        <source>Reconcile</source>
        <translation>Abgleichen</translation>
    </message>
    <message>
        <source>%1: save  |  Enter: next  |  %2: delete  |  %3: memorize  |  &apos;: copy above</source>
        <translation>%1: speichern  |  Enter: weiter  |  %2: löschen  |  %3: als wiederkehrend speichern  |  &apos;: von oben übernehmen</translation>
    </message>
    <message>
        <source>Payee is required</source>
        <translation>Empfänger ist erforderlich</translation>
    </message>
    <message>
        <source>Enter a payment or deposit amount</source>
        <translation>Geben Sie einen Zahlungs- oder Einzahlungsbetrag ein</translation>
    </message>
    <message>
        <source>Transfer account not found</source>
        <translation>Gegenkonto der Umbuchung nicht gefunden</translation>
    </message>
    <message>
        <source>Transfers require both accounts to use the same currency</source>
        <translation>Für Umbuchungen müssen beide Konten dieselbe Währung haben</translation>
    </message>
    <message>
        <source>Transfer to %1</source>
        <translation>Umbuchung an %1</translation>
    </message>
    <message>
        <source>Transfer from %1</source>
        <translation>Umbuchung von %1</translation>
    </message>
    <message>
        <source>Fields cleared</source>
        <translation>Felder geleert</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for %2?</source>
        <translation>„%1“ über %2 löschen?</translation>
    </message>
    <message>
        <source>Delete transfer &quot;%1&quot; for %2?

Both sides of the transfer will be deleted.</source>
        <translation>Umbuchung „%1“ über %2 löschen?

Beide Seiten der Umbuchung werden gelöscht.</translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation>Buchung löschen</translation>
    </message>
    <message>
        <source>Cannot memorize: source transaction has an invalid date</source>
        <translation>Speichern nicht möglich: Die Ausgangsbuchung hat ein ungültiges Datum</translation>
    </message>
    <message>
        <source>Transaction memorized as recurring</source>
        <translation>Buchung als wiederkehrend gespeichert</translation>
    </message>
    <message>
        <source>&amp;Insert New</source>
        <translation>Neue Zeile &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;New Transaction...</source>
        <translation>&amp;Neue Buchung...</translation>
    </message>
    <message>
        <source>Show &amp;Details...</source>
        <translation>&amp;Details anzeigen...</translation>
    </message>
    <message>
        <source>Edit &amp;Splits...</source>
        <translation>&amp;Aufteilung bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Edit in Dialog...</source>
        <translation>Im Dialog bea&amp;rbeiten...</translation>
    </message>
    <message>
        <source>Mark &amp;Uncleared</source>
        <translation>Als &amp;unbestätigt markieren</translation>
    </message>
    <message>
        <source>Mark &amp;Cleared</source>
        <translation>Als &amp;bestätigt markieren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Show columns</source>
        <translation>Spalten anzeigen</translation>
    </message>
    <message>
        <source>Reset register layout</source>
        <translation>Kontobuch-Layout zurücksetzen</translation>
    </message>
</context>
<context>
    <name>ReportsScreen</name>
    <message>
        <source>Category Spending</source>
        <translation>Ausgaben nach Kategorie</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Payee Summary</source>
        <translation>Empfängerübersicht</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Tax Report</source>
        <translation>Steuerbericht</translation>
    </message>
    <message>
        <source>Tax Code</source>
        <translation>Steuerschlüssel</translation>
    </message>
    <message>
        <source>Income vs Expenses</source>
        <translation>Einnahmen und Ausgaben</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>Einnahme</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Net</source>
        <translation>Netto</translation>
    </message>
    <message>
        <source>Cash Flow</source>
        <translation>Cashflow</translation>
    </message>
    <message>
        <source>Inflows</source>
        <translation>Zuflüsse</translation>
    </message>
    <message>
        <source>Outflows</source>
        <translation>Abflüsse</translation>
    </message>
    <message>
        <source>Year-over-Year</source>
        <translation>Jahresvergleich</translation>
    </message>
    <message>
        <source>Period 1</source>
        <translation>Zeitraum 1</translation>
    </message>
    <message>
        <source>Period 2</source>
        <translation>Zeitraum 2</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Account Summary</source>
        <translation>Kontenübersicht</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>Bestätigt</translation>
    </message>
    <message>
        <source>Uncleared</source>
        <translation>Unbestätigt</translation>
    </message>
    <message>
        <source>Transactions</source>
        <translation>Buchungen</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Checking</source>
        <translation>Girokonto</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>Sparkonto</translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation>Kreditkarte</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>Bargeld</translation>
    </message>
    <message>
        <source>Investment</source>
        <translation>Depot</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>This Month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>Last Month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>This Quarter</source>
        <translation>Dieses Quartal</translation>
    </message>
    <message>
        <source>Last Quarter</source>
        <translation>Letztes Quartal</translation>
    </message>
    <message>
        <source>This Year</source>
        <translation>Dieses Jahr</translation>
    </message>
    <message>
        <source>Last Year</source>
        <translation>Letztes Jahr</translation>
    </message>
    <message>
        <source>Last 30 Days</source>
        <translation>Letzte 30 Tage</translation>
    </message>
    <message>
        <source>Last 90 Days</source>
        <translation>Letzte 90 Tage</translation>
    </message>
    <message>
        <source>Last 12 Months</source>
        <translation>Letzte 12 Monate</translation>
    </message>
    <message>
        <source>All Time</source>
        <translation>Gesamter Zeitraum</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>This Year vs Last Year</source>
        <translation>Dieses Jahr / letztes Jahr</translation>
    </message>
    <message>
        <source>Last Year vs Year Before</source>
        <translation>Letztes Jahr / Vorjahr</translation>
    </message>
    <message>
        <source>This Quarter vs Last Quarter</source>
        <translation>Dieses Quartal / letztes Quartal</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation>CSV exportieren</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>Konto:</translation>
    </message>
    <message>
        <source>Period:</source>
        <translation>Zeitraum:</translation>
    </message>
    <message>
        <source>Compare:</source>
        <translation>Vergleich:</translation>
    </message>
    <message>
        <source>P1:</source>
        <translation>Z1:</translation>
    </message>
    <message>
        <source>P2:</source>
        <translation>Z2:</translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation>Alle Konten</translation>
    </message>
    <message>
        <source>P1: %1 – %2    P2: %3 – %4</source>
        <translation>Z1: %1 – %2    Z2: %3 – %4</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
</context>
<context>
    <name>SampleDataService</name>
    <message>
        <source>Main Checking</source>
        <translation>Hauptgirokonto</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>Sparkonto</translation>
    </message>
    <message>
        <source>Visa Rewards</source>
        <translation>Visa Prämien</translation>
    </message>
</context>
<context>
    <name>SearchScreen</name>
    <message>
        <source>Search payee, memo, check number...</source>
        <translation>Empfänger, Notiz, Schecknummer suchen...</translation>
    </message>
    <message>
        <source>Date range:</source>
        <translation>Zeitraum:</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>Cleared only</source>
        <translation>Nur bestätigte</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>Konto:</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation>Alle Konten</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Alle Kategorien</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Kontobuch</translation>
    </message>
    <message>
        <source>Data &amp; Sync</source>
        <translation>Daten &amp; Synchronisierung</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Control how Halcyra Ombrel looks.</source>
        <translation>Legen Sie fest, wie Halcyra Ombrel aussieht.</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Systemvorgabe</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>Sehr groß</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>Regional</source>
        <translation>Region</translation>
    </message>
    <message>
        <source>Date and calendar preferences.</source>
        <translation>Datums- und Kalendereinstellungen.</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>Sonntag</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>Samstag</translation>
    </message>
    <message>
        <source>Week starts on</source>
        <translation>Woche beginnt am</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>How transactions appear in the register.</source>
        <translation>Wie Buchungen im Kontobuch erscheinen.</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Two-line rows</source>
        <translation>Zweizeilige Zeilen</translation>
    </message>
    <message>
        <source>Show memo on a second line below the payee.</source>
        <translation>Notiz in einer zweiten Zeile unter dem Empfänger zeigen.</translation>
    </message>
    <message>
        <source>Sorting</source>
        <translation>Sortierung</translation>
    </message>
    <message>
        <source>Control the order of transactions in the register.</source>
        <translation>Legen Sie die Reihenfolge der Buchungen im Kontobuch fest.</translation>
    </message>
    <message>
        <source>Show newest transactions first</source>
        <translation>Neueste Buchungen zuerst anzeigen</translation>
    </message>
    <message>
        <source>When enabled, the most recent transactions appear at the top.</source>
        <translation>Wenn aktiviert, stehen die neuesten Buchungen oben.</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>Synchronisierung</translation>
    </message>
    <message>
        <source>Keep your ombrel in sync across all your devices.</source>
        <translation>Halten Sie Ihr Ombrel auf allen Geräten synchron.</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>Jetzt synchronisieren</translation>
    </message>
    <message>
        <source>Force Full Sync</source>
        <translation>Vollständige Synchronisierung erzwingen</translation>
    </message>
    <message>
        <source>Backup &amp; Restore</source>
        <translation>Sicherung &amp; Wiederherstellung</translation>
    </message>
    <message>
        <source>Save or restore your data to a portable backup file.</source>
        <translation>Sichern Sie Ihre Daten in eine portable Sicherungsdatei oder stellen Sie sie daraus wieder her.</translation>
    </message>
    <message>
        <source>Export Backup</source>
        <translation>Sicherung exportieren</translation>
    </message>
    <message>
        <source>Import Backup</source>
        <translation>Sicherung importieren</translation>
    </message>
    <message>
        <source>Deleted Accounts</source>
        <translation>Gelöschte Konten</translation>
    </message>
    <message>
        <source>Accounts you&apos;ve deleted can be restored here.</source>
        <translation>Gelöschte Konten können hier wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>Restore Selected</source>
        <translation>Auswahl wiederherstellen</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>A digital ombrel register for tracking household finances.</source>
        <translation>Ein digitales Ombrel-Kontobuch für die Finanzen des Haushalts.</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Halcyra Ombrel on the web</source>
        <translation>Halcyra Ombrel im Web</translation>
    </message>
    <message>
        <source>Halcyra Store</source>
        <translation>Halcyra Store</translation>
    </message>
    <message>
        <source>Help and support</source>
        <translation>Hilfe und Support</translation>
    </message>
    <message>
        <source>© 2026 Halcyra. All rights reserved.
Built with the Qt framework, used under the GNU LGPL version 3.</source>
        <translation>© 2026 Halcyra. Alle Rechte vorbehalten.
Erstellt mit dem Qt-Framework, verwendet unter der GNU LGPL Version 3.</translation>
    </message>
    <message>
        <source>Not signed in.
Sign in via File › Halcyra Account to enable sync.</source>
        <translation>Nicht angemeldet.
Melden Sie sich über Datei › Halcyra-Konto an, um die Synchronisierung zu aktivieren.</translation>
    </message>
    <message>
        <source>Language Changed</source>
        <translation>Sprache geändert</translation>
    </message>
    <message>
        <source>The new language will take effect the next time you start Halcyra Ombrel.</source>
        <translation>Die neue Sprache gilt ab dem nächsten Start von Halcyra Ombrel.</translation>
    </message>
    <message>
        <source>ZIP Files (*.zip)</source>
        <translation>ZIP-Dateien (*.zip)</translation>
    </message>
    <message>
        <source>Exporting...</source>
        <translation>Wird exportiert...</translation>
    </message>
    <message>
        <source>Exporting backup...</source>
        <translation>Sicherung wird exportiert...</translation>
    </message>
    <message>
        <source>Backup Complete</source>
        <translation>Sicherung abgeschlossen</translation>
    </message>
    <message>
        <source>Backup saved to:
%1</source>
        <translation>Sicherung gespeichert unter:
%1</translation>
    </message>
    <message>
        <source>Backup Failed</source>
        <translation>Sicherung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not write to:
%1</source>
        <translation>Schreiben nicht möglich:
%1</translation>
    </message>
    <message>
        <source>Replace all with backup data</source>
        <translation>Alles durch die Daten der Sicherung ersetzen</translation>
    </message>
    <message>
        <source>Keep newer (compare timestamps)</source>
        <translation>Neuere behalten (Zeitstempel vergleichen)</translation>
    </message>
    <message>
        <source>Skip existing items</source>
        <translation>Vorhandene Einträge überspringen</translation>
    </message>
    <message>
        <source>Import Mode</source>
        <translation>Importmodus</translation>
    </message>
    <message>
        <source>How should existing data be handled?</source>
        <translation>Wie sollen vorhandene Daten behandelt werden?</translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation>Import fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not read file.</source>
        <translation>Die Datei konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation>Wird importiert...</translation>
    </message>
    <message>
        <source>Restoring backup...</source>
        <translation>Sicherung wird wiederhergestellt...</translation>
    </message>
    <message>
        <source>Imported %1 items, skipped %2.</source>
        <translation>%1 Einträge importiert, %2 übersprungen.</translation>
    </message>
    <message numerus="yes">
        <source>

%n error(s) occurred.</source>
        <translation>
            <numerusform>

%n Fehler ist aufgetreten.</numerusform>
            <numerusform>

%n Fehler sind aufgetreten.</numerusform>
        </translation>
    </message>
    <message>
        <source>Import Complete</source>
        <translation>Import abgeschlossen</translation>
    </message>
    <message>
        <source>Halcyra user</source>
        <translation>Halcyra-Benutzer</translation>
    </message>
    <message>
        <source>&lt;b&gt;Signed in as:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Status:&lt;/b&gt; &lt;span style=&quot;color:%2&quot;&gt;%3&lt;/span&gt;</source>
        <translation>&lt;b&gt;Angemeldet als:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Status:&lt;/b&gt; &lt;span style=&quot;color:%2&quot;&gt;%3&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Last synced: %1</source>
        <translation>Zuletzt synchronisiert: %1</translation>
    </message>
    <message>
        <source>Never synced</source>
        <translation>Noch nie synchronisiert</translation>
    </message>
    <message>
        <source>
Error: %1</source>
        <translation>
Fehler: %1</translation>
    </message>
    <message>
        <source>Syncing...</source>
        <translation>Wird synchronisiert...</translation>
    </message>
    <message>
        <source>This will re-upload every local row to the server and re-download all server data. Use this if data appears out of sync between devices.

Continue?</source>
        <translation>Dadurch werden alle lokalen Datensätze erneut auf den Server hochgeladen und alle Serverdaten erneut heruntergeladen. Verwenden Sie dies, wenn die Daten zwischen Geräten nicht übereinstimmen.

Fortfahren?</translation>
    </message>
</context>
<context>
    <name>SmartDateEdit</name>
    <message>
        <source>Open calendar (F4)</source>
        <translation>Kalender öffnen (F4)</translation>
    </message>
</context>
<context>
    <name>SplitEditorDialog</name>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Split Transaction</source>
        <translation>Buchung aufteilen</translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation>Summe: %1</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>+ Add Line</source>
        <translation>+ Zeile hinzufügen</translation>
    </message>
    <message>
        <source>- Remove</source>
        <translation>- Entfernen</translation>
    </message>
    <message>
        <source>Remaining: %1</source>
        <translation>Verbleibend: %1</translation>
    </message>
</context>
<context>
    <name>StatusBar</name>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message numerus="yes">
        <source>%n account(s)</source>
        <translation>
            <numerusform>%n Konto</numerusform>
            <numerusform>%n Konten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>  •  %n recurring due</source>
        <translation>
            <numerusform>  •  %n wiederkehrende fällig</numerusform>
            <numerusform>  •  %n wiederkehrende fällig</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SyncEngine</name>
    <message>
        <source>Synced</source>
        <translation>Synchronisiert</translation>
    </message>
    <message>
        <source>Syncing...</source>
        <translation>Wird synchronisiert...</translation>
    </message>
    <message>
        <source>Sync error</source>
        <translation>Synchronisierungsfehler</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>TransactionDetailsDialog</name>
    <message>
        <source>Transaction Details</source>
        <translation>Buchungsdetails</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Datum:</translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation>Empfänger:</translation>
    </message>
    <message>
        <source>- %1</source>
        <translation>- %1</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Betrag:</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation>Notiz:</translation>
    </message>
    <message>
        <source>Check #:</source>
        <translation>Scheck-Nr.:</translation>
    </message>
    <message>
        <source>Transfer to:</source>
        <translation>Umbuchung an:</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>Status:</translation>
    </message>
    <message>
        <source>Entered: %1</source>
        <translation>Erfasst: %1</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Bearbeiten...</translation>
    </message>
    <message>
        <source>Delete...</source>
        <translation>Löschen...</translation>
    </message>
    <message>
        <source>Split lines</source>
        <translation>Aufteilung</translation>
    </message>
    <message>
        <source>(no split lines on record)</source>
        <translation>(keine Aufteilungszeilen gespeichert)</translation>
    </message>
    <message>
        <source>(uncategorized)</source>
        <translation>(ohne Kategorie)</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Reconciled</source>
        <translation>Abgeglichen</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>Bestätigt</translation>
    </message>
    <message>
        <source>Uncleared</source>
        <translation>Unbestätigt</translation>
    </message>
    <message>
        <source>Mark Uncleared</source>
        <translation>Als unbestätigt markieren</translation>
    </message>
    <message>
        <source>Mark Cleared</source>
        <translation>Als bestätigt markieren</translation>
    </message>
    <message>
        <source>Last modified: %1</source>
        <translation>Zuletzt geändert: %1</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for %2?</source>
        <translation>„%1“ über %2 löschen?</translation>
    </message>
    <message>
        <source>Delete transfer &quot;%1&quot; for %2?

Both sides of the transfer will be deleted.</source>
        <translation>Umbuchung „%1“ über %2 löschen?

Beide Seiten der Umbuchung werden gelöscht.</translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation>Buchung löschen</translation>
    </message>
</context>
<context>
    <name>TransactionFormDialog</name>
    <message>
        <source>Edit Transaction</source>
        <translation>Buchung bearbeiten</translation>
    </message>
    <message>
        <source>New Transaction</source>
        <translation>Neue Buchung</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>Einzahlung</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Art:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Datum:</translation>
    </message>
    <message>
        <source>Start typing to search payees...</source>
        <translation>Tippen, um Empfänger zu suchen...</translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation>Empfänger:</translation>
    </message>
    <message>
        <source>Split this transaction across multiple categories with their own amounts and memos.</source>
        <translation>Diese Buchung auf mehrere Kategorien mit eigenen Beträgen und Notizen aufteilen.</translation>
    </message>
    <message>
        <source>Clear split</source>
        <translation>Aufteilung aufheben</translation>
    </message>
    <message>
        <source>Drop the split and return to a single-category transaction.</source>
        <translation>Die Aufteilung verwerfen und zu einer Buchung mit einer Kategorie zurückkehren.</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>Betrag:</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>Optional</translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation>Notiz:</translation>
    </message>
    <message>
        <source>Check #:</source>
        <translation>Scheck-Nr.:</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>Bestätigt</translation>
    </message>
    <message>
        <source>Edit splits...</source>
        <translation>Aufteilung bearbeiten...</translation>
    </message>
    <message>
        <source>Split...</source>
        <translation>Aufteilen...</translation>
    </message>
</context>
<context>
    <name>TransactionRepository</name>
    <message>
        <source>Opening Balance</source>
        <translation>Anfangssaldo</translation>
    </message>
</context>
<context>
    <name>WelcomeScreen</name>
    <message>
        <source>Welcome to
%1</source>
        <translation>Willkommen bei
%1</translation>
    </message>
    <message>
        <source>A digital ombrel register.</source>
        <translation>Ein digitales Ombrel-Kontobuch.</translation>
    </message>
    <message>
        <source>Works fully offline. Your data stays on this device.</source>
        <translation>Funktioniert vollständig offline. Ihre Daten bleiben auf diesem Gerät.</translation>
    </message>
    <message>
        <source>Create Your First Account</source>
        <translation>Erstes Konto anlegen</translation>
    </message>
    <message>
        <source>Learn about sync and sharing</source>
        <translation>Mehr über Synchronisierung und Freigabe</translation>
    </message>
    <message>
        <source>Already have an account? Sign In</source>
        <translation>Sie haben schon ein Konto? Anmelden</translation>
    </message>
    <message>
        <source>How it works</source>
        <translation>So funktioniert’s</translation>
    </message>
    <message>
        <source>Add an account (checking, savings, credit card, or any account you&apos;d like to track).</source>
        <translation>Legen Sie ein Konto an (Girokonto, Sparkonto, Kreditkarte oder jedes andere Konto, das Sie verfolgen möchten).</translation>
    </message>
    <message>
        <source>Record transactions as you spend.</source>
        <translation>Erfassen Sie Buchungen, während Sie Geld ausgeben.</translation>
    </message>
    <message>
        <source>Reconcile when your statement arrives.</source>
        <translation>Gleichen Sie ab, sobald Ihr Kontoauszug kommt.</translation>
    </message>
</context>
</TS>
