<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>AccountFormDialog</name>
    <message>
        <source>New Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>USD ($)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EUR (€)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GBP (£)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CAD ($)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AUD ($)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JPY (¥)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Currency:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starting &amp;Balance:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;As of:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bank name (optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Institution:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 4 digits (optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account &amp;Number:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccountSharingService</name>
    <message>
        <source>Failed to share account (HTTP %1)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>Database Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to initialize the database.

Data directory: %1

Please check file permissions and try again.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BackupService</name>
    <message>
        <source>Failed to open ZIP archive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid backup: missing manifest.json</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsupported backup version: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: invalid JSON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: unexpected error</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CategoriesScreen</name>
    <message>
        <source>Categories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search categories...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+ New Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add &amp;Subcategory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;? Transactions using this category will become uncategorized.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CategoryFormDialog</name>
    <message>
        <source>New Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Subcategory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Parent:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expense</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Income</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax-relevant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark this category for inclusion in tax-time reports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g. charitable_contributions, mortgage_interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax &amp;Code:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CategoryService</name>
    <message>
        <source>Salary / Wages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Housing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rent/Mortgage Payment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groceries</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transportation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gas/Fuel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Electric</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Water</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Entertainment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interest Income</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dining &amp; Restaurants</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subscriptions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Personal Care</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Household</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gifts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Charitable Donations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Medical Expenses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Business Expenses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home Office</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Education Expenses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State &amp; Local Taxes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mortgage Interest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property Tax</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HOA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gas</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Internet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Car Payment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Insurance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Public Transit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Events</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Electronics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insurance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Health</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Life</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home/Renters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fees &amp; Charges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bank Fees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ATM Fees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Late Fees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dividend Income</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rental Income</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Freelance / Consulting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refunds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gifts Received</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other Income</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CategoryTreeModel</name>
    <message>
        <source>income</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>transfer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expense</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax Code</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DateField</name>
    <message>
        <source>Open calendar (F4)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HalcAccount::AccountScreen</name>
    <message>
        <source>(not set)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Security</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data &amp; Privacy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Personal Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Display Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change your account password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You&apos;re not part of a group. The group owner can invite you, or you can join with an invite code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Join with Invite Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Members</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pending Invitations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No pending invitations.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invite code: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invite Members</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invite by Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generate Invite Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Registered Devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Devices that have synced with your account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No devices registered.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  ·  v%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active Sessions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sessions currently signed in to your account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No active sessions.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown client</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  ·  %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Danger Zone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Permanently delete your account. This cannot be undone after 30 days.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are the group owner. Transfer ownership or remove all members before deleting your account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1m ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1h ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1d ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display name updated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to update profile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New password (min 8 characters):</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password must be at least 8 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Confirm new password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Passwords do not match.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to change password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Join Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter invite code:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joined group.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid or expired invite code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Member</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove %1 from the group?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave this group? You will lose access to shared data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left group.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invitation revoked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Email address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to send invitation.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invitation sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to generate code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invite Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share this code with the person you want to invite:

%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Session revoked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will schedule your account for permanent deletion after 30 days.

Type DELETE to confirm:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to delete account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account Scheduled for Deletion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your account will be permanently deleted in 30 days. You can recover it by signing in before then.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HalcAccount::ShareMembersDialog</name>
    <message>
        <source>Share Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People with access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add people</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Owner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not shared with anyone yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You&apos;re not in a family group yet. Sharing needs one: invite someone from your Halcyra account&apos;s Group page, or join with an invite code.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All group members already have access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not share with %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 will no longer have access. Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove access?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not remove %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HalcUpdate</name>
    <message>
        <source>Loading release notes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>*Release notes are not available for this version.*</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is up to date (version %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update check failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HalcUpdate::UpdateDialog</name>
    <message>
        <source>Update available</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A new version of %1 is available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have version %1. The latest version is %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading release notes…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>*Release notes are not available for this version.*</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HalcUpdate::WhatsNewDialog</name>
    <message>
        <source>What&apos;s New in %1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What&apos;s new in %1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are running version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ImportScreen</name>
    <message>
        <source>Import Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QIF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Account:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No file selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV Column Mapping:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto-detect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date column:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee column:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount column:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo column:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category column:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date format:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First row is header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QIF source accounts:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose where each Quicken account should be imported. Accounts mapped across the selected files will have their transfers linked automatically.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV Files (*.csv);;All Files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select QIF File(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>QIF Files (*.qif)</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) selected</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Analyzing QIF file(s)...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Col %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Col %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>— Create new account &quot;%1&quot; —</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>— Skip these transactions —</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No target account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick an account to import into, or create one now.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A database error stopped the import and all changes were rolled back. No transactions were added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import complete!</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n transaction(s) imported</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n transfer(s) linked across accounts</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>  (including %n linked to previously imported row(s))</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n duplicate(s) skipped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (unparseable)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n metadata record(s) skipped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (unmapped source account)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (database error — see log)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be opened</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>File Not Imported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Column names: this row is not imported</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n split line(s) left out (no category)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportService</name>
    <message>
        <source>Imported transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (no account header)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported: one of its rows is longer than %2 characters or %3 fields. The file may be damaged, or it is no CSV file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported: it contains a NUL character, which no CSV or QIF file holds. The file may be damaged, or it is of another kind.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Halcyra Ombrel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Auto-posted %n recurring transaction(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New &amp;Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halcyra &amp;Account...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign &amp;Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Preferences...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reconcile...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciliation &amp;History...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename &amp;Payees...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Share...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;curring Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;ategories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Halcyra Ombrel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What&apos;s &amp;New...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for &amp;Updates...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Send &amp;Feedback...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Load &amp;Sample Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Clear Sample Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Welcome to Halcyra Ombrel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create your first account to get started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can also import transactions from a CSV file via File › Import.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No accounts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign in or sign up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not signed in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select an account first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Categories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee Management</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recurring Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconcile — %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciliation History</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign In Required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sharing requires a Halcyra account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Account...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit &quot;%1&quot;...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconcile...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciliation History...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Payees...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;?

All transactions, recurring entries, and reconciliation history for this account will be removed. You can restore it from Preferences → Data &amp; Sync.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Halcyra Ombrel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;h2&gt;Halcyra Ombrel&lt;/h2&gt;&lt;p&gt;Version %1&lt;/p&gt;&lt;p&gt;A digital ombrel register for tracking household finances.&lt;/p&gt;&lt;p&gt;© 2026 Halcyra. All rights reserved.&lt;br&gt;https://halcyra.com&lt;/p&gt;&lt;p&gt;&lt;small&gt;Built with the Qt framework, used under the GNU LGPL version 3.&lt;/small&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;h3&gt;Register&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%1&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Save transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%2&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Insert new transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%3&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Delete current transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Tab / Shift+Tab&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Next / previous field&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;&apos; (apostrophe)&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Copy value from field above&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Date Field&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;t&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Today&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;+ / -&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Next / previous day&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;m / h&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of month&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;y / r&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of year&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;w / k&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of week&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;General&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%4&lt;/b&gt;&lt;/td&gt;&lt;td&gt;New transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;New account&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%6&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Reconcile account&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%7&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Search transactions&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%8&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Import&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Reports&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%10&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Recurring transactions&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%11&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Categories&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Accounts&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%12 &amp;ndash; %13&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Switch to account 1&amp;ndash;9&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%14&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Switch to account 10&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample data is already loaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample data loaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No sample data to clear.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sample data cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signed in successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign-in failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manage your account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halcyra Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sharing: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share this account with members of your Halcyra family group. They&apos;ll see the same register, balances, and reconciliation history on their devices.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shared with</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not shared with anyone yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove access</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Share Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Share</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove %1&apos;s access to this account?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You don&apos;t have a family group yet. Sharing works within a family group: open Halcyra Account, Group, to invite someone or to join with an invite code.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PayeeScreen</name>
    <message>
        <source>Payee Management</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename to:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge Selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Renamed %n transaction(s).</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Merge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select 2 or more payees to merge.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge Payees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge %1 payees into &quot;%2&quot;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Merged %n transaction(s).</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ReconciliationHistoryScreen</name>
    <message>
        <source>Reconciliation History</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Past reconciliations for this account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statement Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statement Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciled Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Completed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No reconciliations yet. Reconcile your account from the register to see the history here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciliation History — %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReconciliationScreen</name>
    <message>
        <source>Reconcile Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statement Date:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statement Balance:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared Deposits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared Withdrawals</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Statement Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finish Reconciliation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a transaction (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit selected transaction (F2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete selected transaction (Del)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciliation Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account reconciled successfully.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the transaction for %1?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecurringFormDialog</name>
    <message>
        <source>New Recurring Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Recurring Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memorize Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start typing to search payees...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Optional</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Daily</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bi-weekly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Semi-annual</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annual</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Date:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Has end date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End Date:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto-post when due</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecurringModel</name>
    <message>
        <source>Daily</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bi-weekly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Semi-annual</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annual</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inactive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next Due</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecurringScreen</name>
    <message>
        <source>Recurring Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Confirm All Due</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Recurring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(%1 due)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete recurring &quot;%1&quot;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Confirm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Skip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RegisterDelegate</name>
    <message>
        <source>[Transfer] %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>—Split—</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee / Memo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Balance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chk #</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clr</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RegisterScreen</name>
    <message>
        <source>Reconcile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: save  |  Enter: next  |  %2: delete  |  %3: memorize  |  &apos;: copy above</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee is required</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter a payment or deposit amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer account not found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfers require both accounts to use the same currency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer from %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fields cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for %2?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete transfer &quot;%1&quot; for %2?

Both sides of the transfer will be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot memorize: source transaction has an invalid date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transaction memorized as recurring</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Insert New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Transaction...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;Details...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit &amp;Splits...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit in Dialog...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark &amp;Uncleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark &amp;Cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset register layout</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportsScreen</name>
    <message>
        <source>Category Spending</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee Summary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Count</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tax Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Income vs Expenses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Income</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Net</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cash Flow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inflows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outflows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Year-over-Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Period 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Period 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account Summary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uncleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transactions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cash</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Investment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 30 Days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 90 Days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 12 Months</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Custom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Year vs Last Year</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Year vs Year Before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Quarter vs Last Quarter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Period:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>P1:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>P2:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>P1: %1 – %2    P2: %3 – %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SampleDataService</name>
    <message>
        <source>Main Checking</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Savings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visa Rewards</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SearchScreen</name>
    <message>
        <source>Search payee, memo, check number...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date range:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Register</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data &amp; Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control how Halcyra Ombrel looks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System Default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Small</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Medium</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Font size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Regional</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date and calendar preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Week starts on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How transactions appear in the register.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two-line rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show memo on a second line below the payee.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control the order of transactions in the register.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show newest transactions first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>When enabled, the most recent transactions appear at the top.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep your ombrel in sync across all your devices.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Force Full Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup &amp; Restore</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save or restore your data to a portable backup file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleted Accounts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accounts you&apos;ve deleted can be restored here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restore Selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A digital ombrel register for tracking household finances.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halcyra Ombrel on the web</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halcyra Store</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help and support</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>© 2026 Halcyra. All rights reserved.
Built with the Qt framework, used under the GNU LGPL version 3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not signed in.
Sign in via File › Halcyra Account to enable sync.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language Changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The new language will take effect the next time you start Halcyra Ombrel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ZIP Files (*.zip)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting backup...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup saved to:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write to:
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace all with backup data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep newer (compare timestamps)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip existing items</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How should existing data be handled?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not read file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restoring backup...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imported %1 items, skipped %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>

%n error(s) occurred.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Import Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Halcyra user</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;b&gt;Signed in as:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Status:&lt;/b&gt; &lt;span style=&quot;color:%2&quot;&gt;%3&lt;/span&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last synced: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Never synced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Error: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Syncing...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This will re-upload every local row to the server and re-download all server data. Use this if data appears out of sync between devices.

Continue?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SmartDateEdit</name>
    <message>
        <source>Open calendar (F4)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SplitEditorDialog</name>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+ Add Line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>- Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remaining: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StatusBar</name>
    <message>
        <source>Offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n account(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>  •  %n recurring due</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SyncEngine</name>
    <message>
        <source>Synced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Syncing...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TransactionDetailsDialog</name>
    <message>
        <source>Transaction Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>- %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check #:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Transfer to:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Entered: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(no split lines on record)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(uncategorized)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconciled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uncleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark Uncleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark Cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last modified: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for %2?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete transfer &quot;%1&quot; for %2?

Both sides of the transfer will be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TransactionFormDialog</name>
    <message>
        <source>Edit Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Transaction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start typing to search payees...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split this transaction across multiple categories with their own amounts and memos.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear split</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop the split and return to a single-category transaction.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Category:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Optional</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check #:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit splits...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Split...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TransactionRepository</name>
    <message>
        <source>Opening Balance</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WelcomeScreen</name>
    <message>
        <source>Welcome to
%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A digital ombrel register.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Works fully offline. Your data stays on this device.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Your First Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Learn about sync and sharing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Already have an account? Sign In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How it works</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add an account (checking, savings, credit card, or any account you&apos;d like to track).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record transactions as you spend.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reconcile when your statement arrives.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
