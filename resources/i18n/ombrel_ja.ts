<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>AccountFormDialog</name>
    <message>
        <source>New Account</source>
        <translation>新規口座</translation>
    </message>
    <message>
        <source>Edit Account</source>
        <translation>口座の編集</translation>
    </message>
    <message>
        <source>Account name</source>
        <translation>口座名</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>名前(&amp;N):</translation>
    </message>
    <message>
        <source>Checking</source>
        <translation>当座預金</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>普通預金</translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation>クレジットカード</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>現金</translation>
    </message>
    <message>
        <source>Investment</source>
        <translation>投資</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>種類(&amp;T):</translation>
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
        <translation>通貨(&amp;C):</translation>
    </message>
    <message>
        <source>Starting &amp;Balance:</source>
        <translation>開始残高(&amp;B):</translation>
    </message>
    <message>
        <source>&amp;As of:</source>
        <translation>基準日(&amp;A):</translation>
    </message>
    <message>
        <source>Bank name (optional)</source>
        <translation>金融機関名（任意）</translation>
    </message>
    <message>
        <source>&amp;Institution:</source>
        <translation>金融機関(&amp;I):</translation>
    </message>
    <message>
        <source>Last 4 digits (optional)</source>
        <translation>下4桁（任意）</translation>
    </message>
    <message>
        <source>Account &amp;Number:</source>
        <translation>口座番号(&amp;U):</translation>
    </message>
</context>
<context>
    <name>AccountSharingService</name>
    <message>
        <source>Failed to share account (HTTP %1)</source>
        <translation>口座を共有できませんでした (HTTP %1)</translation>
    </message>
</context>
<context>
    <name>Application</name>
    <message>
        <source>Database Error</source>
        <translation>データベースエラー</translation>
    </message>
    <message>
        <source>Failed to initialize the database.

Data directory: %1

Please check file permissions and try again.</source>
        <translation>データベースを初期化できませんでした。

データフォルダー: %1

ファイルのアクセス権を確認して、もう一度お試しください。</translation>
    </message>
</context>
<context>
    <name>BackupService</name>
    <message>
        <source>Failed to open ZIP archive</source>
        <translation>ZIP アーカイブを開けませんでした</translation>
    </message>
    <message>
        <source>Invalid backup: missing manifest.json</source>
        <translation>無効なバックアップです: manifest.json がありません</translation>
    </message>
    <message>
        <source>Unsupported backup version: %1</source>
        <translation>対応していないバックアップのバージョンです: %1</translation>
    </message>
    <message>
        <source>%1: invalid JSON</source>
        <translation>%1: JSON が無効です</translation>
    </message>
    <message>
        <source>%1: unexpected error</source>
        <translation>%1: 予期しないエラー</translation>
    </message>
</context>
<context>
    <name>CategoriesScreen</name>
    <message>
        <source>Categories</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Search categories...</source>
        <translation>カテゴリを検索...</translation>
    </message>
    <message>
        <source>+ New Category</source>
        <translation>+ 新規カテゴリ</translation>
    </message>
    <message>
        <source>&amp;New Category</source>
        <translation>新規カテゴリ(&amp;N)</translation>
    </message>
    <message>
        <source>Add &amp;Subcategory</source>
        <translation>サブカテゴリを追加(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>Delete Category</source>
        <translation>カテゴリの削除</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;? Transactions using this category will become uncategorized.</source>
        <translation>「%1」を削除しますか？このカテゴリを使っている取引は未分類になります。</translation>
    </message>
</context>
<context>
    <name>CategoryFormDialog</name>
    <message>
        <source>New Category</source>
        <translation>新規カテゴリ</translation>
    </message>
    <message>
        <source>New Subcategory</source>
        <translation>新規サブカテゴリ</translation>
    </message>
    <message>
        <source>Edit Category</source>
        <translation>カテゴリの編集</translation>
    </message>
    <message>
        <source>&amp;Parent:</source>
        <translation>親カテゴリ(&amp;P):</translation>
    </message>
    <message>
        <source>Category name</source>
        <translation>カテゴリ名</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>名前(&amp;N):</translation>
    </message>
    <message>
        <source>Expense</source>
        <translation>支出</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>収入</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>種類(&amp;T):</translation>
    </message>
    <message>
        <source>Tax-relevant</source>
        <translation>税金関連</translation>
    </message>
    <message>
        <source>Mark this category for inclusion in tax-time reports.</source>
        <translation>確定申告用のレポートにこのカテゴリを含めます。</translation>
    </message>
    <message>
        <source>e.g. charitable_contributions, mortgage_interest</source>
        <translation>例: charitable_contributions, mortgage_interest</translation>
    </message>
    <message>
        <source>Tax &amp;Code:</source>
        <translation>税区分コード(&amp;C):</translation>
    </message>
</context>
<context>
    <name>CategoryService</name>
    <message>
        <source>Salary / Wages</source>
        <translation>給与</translation>
    </message>
    <message>
        <source>Housing</source>
        <translation>住居</translation>
    </message>
    <message>
        <source>Rent/Mortgage Payment</source>
        <translation>家賃・住宅ローン</translation>
    </message>
    <message>
        <source>Groceries</source>
        <translation>食料品</translation>
    </message>
    <message>
        <source>Transportation</source>
        <translation>交通</translation>
    </message>
    <message>
        <source>Gas/Fuel</source>
        <translation>ガソリン・燃料</translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation>水道光熱費</translation>
    </message>
    <message>
        <source>Electric</source>
        <translation>電気</translation>
    </message>
    <message>
        <source>Water</source>
        <translation>水道</translation>
    </message>
    <message>
        <source>Entertainment</source>
        <translation>娯楽</translation>
    </message>
    <message>
        <source>Streaming</source>
        <translation>動画・音楽配信</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>映画</translation>
    </message>
    <message>
        <source>Interest Income</source>
        <translation>受取利息</translation>
    </message>
    <message>
        <source>Dining &amp; Restaurants</source>
        <translation>外食</translation>
    </message>
    <message>
        <source>Subscriptions</source>
        <translation>サブスクリプション</translation>
    </message>
    <message>
        <source>Personal Care</source>
        <translation>美容・身だしなみ</translation>
    </message>
    <message>
        <source>Pets</source>
        <translation>ペット</translation>
    </message>
    <message>
        <source>Shopping</source>
        <translation>買い物</translation>
    </message>
    <message>
        <source>Clothing</source>
        <translation>衣服</translation>
    </message>
    <message>
        <source>Household</source>
        <translation>日用品</translation>
    </message>
    <message>
        <source>Gifts</source>
        <translation>贈り物</translation>
    </message>
    <message>
        <source>Charitable Donations</source>
        <translation>寄付金</translation>
    </message>
    <message>
        <source>Medical Expenses</source>
        <translation>医療費</translation>
    </message>
    <message>
        <source>Business Expenses</source>
        <translation>事業経費</translation>
    </message>
    <message>
        <source>Home Office</source>
        <translation>在宅勤務</translation>
    </message>
    <message>
        <source>Education Expenses</source>
        <translation>教育費</translation>
    </message>
    <message>
        <source>State &amp; Local Taxes</source>
        <translation>住民税・地方税</translation>
    </message>
    <message>
        <source>Mortgage Interest</source>
        <translation>住宅ローン利息</translation>
    </message>
    <message>
        <source>Property Tax</source>
        <translation>固定資産税</translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation>修繕・メンテナンス</translation>
    </message>
    <message>
        <source>HOA</source>
        <translation>管理費</translation>
    </message>
    <message>
        <source>Gas</source>
        <translation>ガス</translation>
    </message>
    <message>
        <source>Internet</source>
        <translation>インターネット</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>電話</translation>
    </message>
    <message>
        <source>Car Payment</source>
        <translation>自動車ローン</translation>
    </message>
    <message>
        <source>Auto Insurance</source>
        <translation>自動車保険</translation>
    </message>
    <message>
        <source>Public Transit</source>
        <translation>公共交通機関</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>雑費</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>イベント</translation>
    </message>
    <message>
        <source>Electronics</source>
        <translation>家電</translation>
    </message>
    <message>
        <source>Insurance</source>
        <translation>保険</translation>
    </message>
    <message>
        <source>Health</source>
        <translation>医療保険</translation>
    </message>
    <message>
        <source>Life</source>
        <translation>生命保険</translation>
    </message>
    <message>
        <source>Home/Renters</source>
        <translation>火災・家財保険</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動車</translation>
    </message>
    <message>
        <source>Fees &amp; Charges</source>
        <translation>手数料</translation>
    </message>
    <message>
        <source>Bank Fees</source>
        <translation>銀行手数料</translation>
    </message>
    <message>
        <source>ATM Fees</source>
        <translation>ATM 手数料</translation>
    </message>
    <message>
        <source>Late Fees</source>
        <translation>延滞料</translation>
    </message>
    <message>
        <source>Dividend Income</source>
        <translation>配当金</translation>
    </message>
    <message>
        <source>Rental Income</source>
        <translation>家賃収入</translation>
    </message>
    <message>
        <source>Freelance / Consulting</source>
        <translation>フリーランス・コンサルティング</translation>
    </message>
    <message>
        <source>Refunds</source>
        <translation>返金</translation>
    </message>
    <message>
        <source>Gifts Received</source>
        <translation>受け取った贈り物</translation>
    </message>
    <message>
        <source>Other Income</source>
        <translation>その他の収入</translation>
    </message>
</context>
<context>
    <name>CategoryTreeModel</name>
    <message>
        <source>income</source>
        <translation>収入</translation>
    </message>
    <message>
        <source>transfer</source>
        <translation>振替</translation>
    </message>
    <message>
        <source>expense</source>
        <translation>支出</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Tax Code</source>
        <translation>税区分コード</translation>
    </message>
</context>
<context>
    <name>DateField</name>
    <message>
        <source>Open calendar (F4)</source>
        <translation>カレンダーを開く (F4)</translation>
    </message>
</context>
<context>
    <name>HalcAccount::AccountScreen</name>
    <message>
        <source>(not set)</source>
        <translation>（未設定）</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>プロフィール</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Security</source>
        <translation>セキュリティ</translation>
    </message>
    <message>
        <source>Data &amp; Privacy</source>
        <translation>データとプライバシー</translation>
    </message>
    <message>
        <source>Personal Information</source>
        <translation>個人情報</translation>
    </message>
    <message>
        <source>Edit Display Name</source>
        <translation>表示名を編集</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Change your account password.</source>
        <translation>アカウントのパスワードを変更します。</translation>
    </message>
    <message>
        <source>Change Password</source>
        <translation>パスワードを変更</translation>
    </message>
    <message>
        <source>Owner</source>
        <translation>オーナー</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>No Group</source>
        <translation>グループなし</translation>
    </message>
    <message>
        <source>You&apos;re not part of a group. The group owner can invite you, or you can join with an invite code.</source>
        <translation>グループに参加していません。グループのオーナーから招待を受けるか、招待コードを使って参加できます。</translation>
    </message>
    <message>
        <source>Join with Invite Code</source>
        <translation>招待コードで参加</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>メンバー</translation>
    </message>
    <message>
        <source>Pending Invitations</source>
        <translation>保留中の招待</translation>
    </message>
    <message>
        <source>No pending invitations.</source>
        <translation>保留中の招待はありません。</translation>
    </message>
    <message>
        <source>Invite code: %1</source>
        <translation>招待コード：%1</translation>
    </message>
    <message>
        <source>Revoke</source>
        <translation>取り消し</translation>
    </message>
    <message>
        <source>Invite Members</source>
        <translation>メンバーを招待</translation>
    </message>
    <message>
        <source>Invite by Email</source>
        <translation>メールで招待</translation>
    </message>
    <message>
        <source>Generate Invite Code</source>
        <translation>招待コードを生成</translation>
    </message>
    <message>
        <source>Leave Group</source>
        <translation>グループから退出</translation>
    </message>
    <message>
        <source>Registered Devices</source>
        <translation>登録済みデバイス</translation>
    </message>
    <message>
        <source>Devices that have synced with your account.</source>
        <translation>アカウントと同期したデバイスです。</translation>
    </message>
    <message>
        <source>No devices registered.</source>
        <translation>登録済みのデバイスはありません。</translation>
    </message>
    <message>
        <source>Unknown Device</source>
        <translation>不明なデバイス</translation>
    </message>
    <message>
        <source>  ·  v%1</source>
        <translation>  ·  v%1</translation>
    </message>
    <message>
        <source>Active Sessions</source>
        <translation>アクティブなセッション</translation>
    </message>
    <message>
        <source>Sessions currently signed in to your account.</source>
        <translation>現在アカウントにサインインしているセッションです。</translation>
    </message>
    <message>
        <source>No active sessions.</source>
        <translation>アクティブなセッションはありません。</translation>
    </message>
    <message>
        <source>Unknown client</source>
        <translation>不明なクライアント</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>現在</translation>
    </message>
    <message>
        <source>  ·  %1</source>
        <translation>  ·  %1</translation>
    </message>
    <message>
        <source>This session</source>
        <translation>このセッション</translation>
    </message>
    <message>
        <source>Danger Zone</source>
        <translation>危険な操作</translation>
    </message>
    <message>
        <source>Permanently delete your account. This cannot be undone after 30 days.</source>
        <translation>アカウントを完全に削除します。30 日を過ぎると元に戻せません。</translation>
    </message>
    <message>
        <source>Delete Account</source>
        <translation>アカウントを削除</translation>
    </message>
    <message>
        <source>You are the group owner. Transfer ownership or remove all members before deleting your account.</source>
        <translation>あなたはグループのオーナーです。アカウントを削除する前に、オーナー権限を譲渡するか、すべてのメンバーを削除してください。</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>Active now</source>
        <translation>現在アクティブ</translation>
    </message>
    <message>
        <source>%1m ago</source>
        <translation>%1 分前</translation>
    </message>
    <message>
        <source>%1h ago</source>
        <translation>%1 時間前</translation>
    </message>
    <message>
        <source>%1d ago</source>
        <translation>%1 日前</translation>
    </message>
    <message>
        <source>Display name:</source>
        <translation>表示名：</translation>
    </message>
    <message>
        <source>Display name updated.</source>
        <translation>表示名を更新しました。</translation>
    </message>
    <message>
        <source>Failed to update profile.</source>
        <translation>プロフィールを更新できませんでした。</translation>
    </message>
    <message>
        <source>Current password:</source>
        <translation>現在のパスワード：</translation>
    </message>
    <message>
        <source>New password (min 8 characters):</source>
        <translation>新しいパスワード（8 文字以上）：</translation>
    </message>
    <message>
        <source>Password must be at least 8 characters.</source>
        <translation>パスワードは 8 文字以上にしてください。</translation>
    </message>
    <message>
        <source>Confirm new password:</source>
        <translation>新しいパスワードの確認：</translation>
    </message>
    <message>
        <source>Passwords do not match.</source>
        <translation>パスワードが一致しません。</translation>
    </message>
    <message>
        <source>Password changed.</source>
        <translation>パスワードを変更しました。</translation>
    </message>
    <message>
        <source>Failed to change password.</source>
        <translation>パスワードを変更できませんでした。</translation>
    </message>
    <message>
        <source>Join Group</source>
        <translation>グループに参加</translation>
    </message>
    <message>
        <source>Enter invite code:</source>
        <translation>招待コードを入力してください：</translation>
    </message>
    <message>
        <source>Joined group.</source>
        <translation>グループに参加しました。</translation>
    </message>
    <message>
        <source>Invalid or expired invite code.</source>
        <translation>招待コードが無効か、有効期限が切れています。</translation>
    </message>
    <message>
        <source>Remove Member</source>
        <translation>メンバーを削除</translation>
    </message>
    <message>
        <source>Remove %1 from the group?</source>
        <translation>%1 をグループから削除しますか？</translation>
    </message>
    <message>
        <source>%1 removed.</source>
        <translation>%1 を削除しました。</translation>
    </message>
    <message>
        <source>Leave this group? You will lose access to shared data.</source>
        <translation>このグループから退出しますか？共有データにアクセスできなくなります。</translation>
    </message>
    <message>
        <source>Left group.</source>
        <translation>グループから退出しました。</translation>
    </message>
    <message>
        <source>Invitation revoked.</source>
        <translation>招待を取り消しました。</translation>
    </message>
    <message>
        <source>Email address:</source>
        <translation>メールアドレス：</translation>
    </message>
    <message>
        <source>Failed to send invitation.</source>
        <translation>招待を送信できませんでした。</translation>
    </message>
    <message>
        <source>Invitation sent.</source>
        <translation>招待を送信しました。</translation>
    </message>
    <message>
        <source>Failed to generate code.</source>
        <translation>コードを生成できませんでした。</translation>
    </message>
    <message>
        <source>Invite Code</source>
        <translation>招待コード</translation>
    </message>
    <message>
        <source>Share this code with the person you want to invite:

%1</source>
        <translation>招待したい相手にこのコードを伝えてください：

%1</translation>
    </message>
    <message>
        <source>Remove Device</source>
        <translation>デバイスを削除</translation>
    </message>
    <message>
        <source>Remove %1?</source>
        <translation>%1 を削除しますか？</translation>
    </message>
    <message>
        <source>Device removed.</source>
        <translation>デバイスを削除しました。</translation>
    </message>
    <message>
        <source>Session revoked.</source>
        <translation>セッションを取り消しました。</translation>
    </message>
    <message>
        <source>This will schedule your account for permanent deletion after 30 days.

Type DELETE to confirm:</source>
        <translation>アカウントは 30 日後に完全に削除されるよう予約されます。

確認のため DELETE と入力してください：</translation>
    </message>
    <message>
        <source>Failed to delete account.</source>
        <translation>アカウントを削除できませんでした。</translation>
    </message>
    <message>
        <source>Account Scheduled for Deletion</source>
        <translation>アカウントの削除を予約しました</translation>
    </message>
    <message>
        <source>Your account will be permanently deleted in 30 days. You can recover it by signing in before then.</source>
        <translation>アカウントは 30 日後に完全に削除されます。それまでにサインインすれば復元できます。</translation>
    </message>
</context>
<context>
    <name>HalcAccount::ShareMembersDialog</name>
    <message>
        <source>Share Account</source>
        <translation>口座を共有</translation>
    </message>
    <message>
        <source>People with access</source>
        <translation>アクセスできるユーザー</translation>
    </message>
    <message>
        <source>Add people</source>
        <translation>ユーザーを追加</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>読み込み中...</translation>
    </message>
    <message>
        <source>Owner</source>
        <translation>オーナー</translation>
    </message>
    <message>
        <source>Remove access</source>
        <translation>アクセスを削除</translation>
    </message>
    <message>
        <source>Not shared with anyone yet.</source>
        <translation>まだ誰とも共有していません。</translation>
    </message>
    <message>
        <source>You&apos;re not in a family group yet. Sharing needs one: invite someone from your Halcyra account&apos;s Group page, or join with an invite code.</source>
        <translation>まだファミリーグループに参加していません。共有にはファミリーグループが必要です。Halcyra アカウントの「グループ」ページから誰かを招待するか、招待コードで参加してください。</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>共有</translation>
    </message>
    <message>
        <source>All group members already have access</source>
        <translation>グループのメンバー全員がすでにアクセスできます</translation>
    </message>
    <message>
        <source>Share Failed</source>
        <translation>共有に失敗しました</translation>
    </message>
    <message>
        <source>Could not share with %1.</source>
        <translation>%1 と共有できませんでした。</translation>
    </message>
    <message>
        <source>%1 will no longer have access. Continue?</source>
        <translation>%1 はアクセスできなくなります。続行しますか？</translation>
    </message>
    <message>
        <source>Remove access?</source>
        <translation>アクセスを削除しますか？</translation>
    </message>
    <message>
        <source>Remove Failed</source>
        <translation>削除に失敗しました</translation>
    </message>
    <message>
        <source>Could not remove %1.</source>
        <translation>%1 を削除できませんでした。</translation>
    </message>
</context>
<context>
    <name>HalcUpdate</name>
    <message>
        <source>Loading release notes…</source>
        <translation>リリースノートを読み込んでいます…</translation>
    </message>
    <message>
        <source>*Release notes are not available for this version.*</source>
        <translation>*このバージョンのリリースノートはありません。*</translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation>アップデートを確認しています…</translation>
    </message>
    <message>
        <source>%1 is up to date (version %2)</source>
        <translation>%1 は最新です（バージョン %2）</translation>
    </message>
    <message>
        <source>Update check failed: %1</source>
        <translation>アップデートを確認できませんでした: %1</translation>
    </message>
</context>
<context>
    <name>HalcUpdate::UpdateDialog</name>
    <message>
        <source>Update available</source>
        <translation>アップデートがあります</translation>
    </message>
    <message>
        <source>A new version of %1 is available.</source>
        <translation>%1 の新しいバージョンがあります。</translation>
    </message>
    <message>
        <source>You have version %1. The latest version is %2.</source>
        <translation>現在のバージョンは %1 です。最新バージョンは %2 です。</translation>
    </message>
    <message>
        <source>Loading release notes…</source>
        <translation>リリースノートを読み込んでいます…</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>後で</translation>
    </message>
    <message>
        <source>*Release notes are not available for this version.*</source>
        <translation>*このバージョンのリリースノートはありません。*</translation>
    </message>
</context>
<context>
    <name>HalcUpdate::WhatsNewDialog</name>
    <message>
        <source>What&apos;s New in %1 %2</source>
        <translation>%1 %2 の新機能</translation>
    </message>
    <message>
        <source>What&apos;s new in %1 %2</source>
        <translation>%1 %2 の新機能</translation>
    </message>
    <message>
        <source>You are running version %1</source>
        <translation>バージョン %1 を使用しています</translation>
    </message>
    <message>
        <source>Download %1</source>
        <translation>%1 をダウンロード</translation>
    </message>
</context>
<context>
    <name>ImportScreen</name>
    <message>
        <source>Import Transactions</source>
        <translation>取引のインポート</translation>
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
        <translation>形式(&amp;F):</translation>
    </message>
    <message>
        <source>&amp;Account:</source>
        <translation>口座(&amp;A):</translation>
    </message>
    <message>
        <source>No file selected</source>
        <translation>ファイルが選択されていません</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>ファイル:</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>インポート</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>CSV Column Mapping:</source>
        <translation>CSV の列の割り当て:</translation>
    </message>
    <message>
        <source>Auto-detect</source>
        <translation>自動検出</translation>
    </message>
    <message>
        <source>Date column:</source>
        <translation>日付の列:</translation>
    </message>
    <message>
        <source>Payee column:</source>
        <translation>取引先の列:</translation>
    </message>
    <message>
        <source>Amount column:</source>
        <translation>金額の列:</translation>
    </message>
    <message>
        <source>Memo column:</source>
        <translation>メモの列:</translation>
    </message>
    <message>
        <source>Category column:</source>
        <translation>カテゴリの列:</translation>
    </message>
    <message>
        <source>Date format:</source>
        <translation>日付の形式:</translation>
    </message>
    <message>
        <source>First row is header</source>
        <translation>1 行目は見出し</translation>
    </message>
    <message>
        <source>QIF source accounts:</source>
        <translation>QIF の元口座:</translation>
    </message>
    <message>
        <source>Choose where each Quicken account should be imported. Accounts mapped across the selected files will have their transfers linked automatically.</source>
        <translation>Quicken の各口座をどこにインポートするか選んでください。選択したファイル間で割り当てた口座同士の振替は自動的に関連付けられます。</translation>
    </message>
    <message>
        <source>Select File</source>
        <translation>ファイルの選択</translation>
    </message>
    <message>
        <source>CSV Files (*.csv);;All Files (*)</source>
        <translation>CSV ファイル (*.csv);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Select QIF File(s)</source>
        <translation>QIF ファイルの選択</translation>
    </message>
    <message>
        <source>QIF Files (*.qif)</source>
        <translation>QIF ファイル (*.qif)</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) selected</source>
        <translation>
            <numerusform>%n 個のファイルを選択</numerusform>
        </translation>
    </message>
    <message>
        <source>Analyzing QIF file(s)...</source>
        <translation>QIF ファイルを解析しています...</translation>
    </message>
    <message>
        <source>Col %1: %2</source>
        <translation>列 %1: %2</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>列 %1</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（なし）</translation>
    </message>
    <message>
        <source>Col %1</source>
        <translation>列 %1</translation>
    </message>
    <message>
        <source>— Create new account &quot;%1&quot; —</source>
        <translation>— 新しい口座「%1」を作成 —</translation>
    </message>
    <message>
        <source>— Skip these transactions —</source>
        <translation>— これらの取引をスキップ —</translation>
    </message>
    <message>
        <source>No target account</source>
        <translation>インポート先の口座がありません</translation>
    </message>
    <message>
        <source>Pick an account to import into, or create one now.</source>
        <translation>インポート先の口座を選ぶか、今すぐ作成してください。</translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation>開始残高</translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation>インポート中...</translation>
    </message>
    <message>
        <source>Import failed.</source>
        <translation>インポートに失敗しました。</translation>
    </message>
    <message>
        <source>A database error stopped the import and all changes were rolled back. No transactions were added.</source>
        <translation>データベースエラーでインポートが中断され、すべての変更が取り消されました。取引は追加されていません。</translation>
    </message>
    <message>
        <source>Import complete!</source>
        <translation>インポートが完了しました！</translation>
    </message>
    <message numerus="yes">
        <source>%n transaction(s) imported</source>
        <translation>
            <numerusform>%n 件の取引をインポート</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n transfer(s) linked across accounts</source>
        <translation>
            <numerusform>口座間の振替 %n 件を関連付け</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>  (including %n linked to previously imported row(s))</source>
        <translation>
            <numerusform>  （うち %n 件は以前にインポートした行と関連付け）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n duplicate(s) skipped</source>
        <translation>
            <numerusform>重複 %n 件をスキップ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (unparseable)</source>
        <translation>
            <numerusform>%n 件のレコードをスキップ（解析不能）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n metadata record(s) skipped</source>
        <translation>
            <numerusform>%n 件のメタデータレコードをスキップ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (unmapped source account)</source>
        <translation>
            <numerusform>%n 件のレコードをスキップ（元口座が未割り当て）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) skipped (database error — see log)</source>
        <translation>
            <numerusform>%n 件のレコードをスキップ（データベースエラー — ログを参照）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be opened</source>
        <translation>
            <numerusform>%n 個のファイルを開けませんでした</numerusform>
        </translation>
    </message>
    <message>
        <source>File Not Imported</source>
        <translation>ファイルをインポートしませんでした</translation>
    </message>
    <message>
        <source>Header</source>
        <translation>見出し</translation>
    </message>
    <message>
        <source>Column names: this row is not imported</source>
        <translation>列名：この行はインポートされません</translation>
    </message>
    <message numerus="yes">
        <source>%n split line(s) left out (no category)</source>
        <translation>
            <numerusform>分割行 %n 件を除外しました（カテゴリなし）</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportService</name>
    <message>
        <source>Imported transaction</source>
        <translation>インポートした取引</translation>
    </message>
    <message>
        <source>%1 (no account header)</source>
        <translation>%1（口座ヘッダーなし）</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported: one of its rows is longer than %2 characters or %3 fields. The file may be damaged, or it is no CSV file.</source>
        <translation>「%1」はインポートされませんでした：%2 文字または %3 フィールドを超える行があります。ファイルが壊れているか、CSV ファイルではない可能性があります。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was not imported: it contains a NUL character, which no CSV or QIF file holds. The file may be damaged, or it is of another kind.</source>
        <translation>「%1」はインポートされませんでした：CSV や QIF ファイルには含まれない NUL 文字が含まれています。ファイルが壊れているか、別の種類のファイルである可能性があります。</translation>
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
        <translation>当座預金</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>普通預金</translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation>クレジットカード</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>現金</translation>
    </message>
    <message>
        <source>Investment</source>
        <translation>投資</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>その他</translation>
    </message>
    <message numerus="yes">
        <source>Auto-posted %n recurring transaction(s)</source>
        <translation>
            <numerusform>定期取引 %n 件を自動記帳しました</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;New Transaction</source>
        <translation>新規取引(&amp;N)</translation>
    </message>
    <message>
        <source>New &amp;Account</source>
        <translation>新規口座(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>インポート(&amp;I)...</translation>
    </message>
    <message>
        <source>Halcyra &amp;Account...</source>
        <translation>Halcyra アカウント(&amp;C)...</translation>
    </message>
    <message>
        <source>Sign &amp;Out</source>
        <translation>サインアウト(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>検索(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Preferences...</source>
        <translation>環境設定(&amp;P)...</translation>
    </message>
    <message>
        <source>&amp;Account</source>
        <translation>口座(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>編集(&amp;E)...</translation>
    </message>
    <message>
        <source>&amp;Reconcile...</source>
        <translation>照合(&amp;R)...</translation>
    </message>
    <message>
        <source>Reconciliation &amp;History...</source>
        <translation>照合履歴(&amp;H)...</translation>
    </message>
    <message>
        <source>Rename &amp;Payees...</source>
        <translation>取引先名の変更(&amp;P)...</translation>
    </message>
    <message>
        <source>&amp;Share...</source>
        <translation>共有(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Reports</source>
        <translation>レポート(&amp;R)</translation>
    </message>
    <message>
        <source>Re&amp;curring Transactions</source>
        <translation>定期取引(&amp;C)</translation>
    </message>
    <message>
        <source>C&amp;ategories</source>
        <translation>カテゴリ(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Halcyra Ombrel</source>
        <translation>Halcyra Ombrel について(&amp;A)</translation>
    </message>
    <message>
        <source>What&apos;s &amp;New...</source>
        <translation>新機能(&amp;N)...</translation>
    </message>
    <message>
        <source>Check for &amp;Updates...</source>
        <translation>アップデートを確認(&amp;U)...</translation>
    </message>
    <message>
        <source>Send &amp;Feedback...</source>
        <translation>フィードバックを送信(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>キーボードショートカット(&amp;K)</translation>
    </message>
    <message>
        <source>Load &amp;Sample Data</source>
        <translation>サンプルデータを読み込む(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Clear Sample Data</source>
        <translation>サンプルデータを消去(&amp;C)</translation>
    </message>
    <message>
        <source>Welcome to Halcyra Ombrel</source>
        <translation>Halcyra Ombrel へようこそ</translation>
    </message>
    <message>
        <source>Create your first account to get started.</source>
        <translation>最初の口座を作成して始めましょう。</translation>
    </message>
    <message>
        <source>Create Account</source>
        <translation>口座を作成</translation>
    </message>
    <message>
        <source>You can also import transactions from a CSV file via File › Import.</source>
        <translation>「ファイル › インポート」から CSV ファイルの取引を取り込むこともできます。</translation>
    </message>
    <message>
        <source>No accounts</source>
        <translation>口座がありません</translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation>合計: %1</translation>
    </message>
    <message>
        <source>Sign in or sign up</source>
        <translation>サインインまたは新規登録</translation>
    </message>
    <message>
        <source>Not signed in</source>
        <translation>サインインしていません</translation>
    </message>
    <message>
        <source>Select an account first</source>
        <translation>先に口座を選択してください</translation>
    </message>
    <message>
        <source>Opening Balance</source>
        <translation>開始残高</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>レポート</translation>
    </message>
    <message>
        <source>Search Transactions</source>
        <translation>取引の検索</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Payee Management</source>
        <translation>取引先の管理</translation>
    </message>
    <message>
        <source>Import Transactions</source>
        <translation>取引のインポート</translation>
    </message>
    <message>
        <source>Recurring Transactions</source>
        <translation>定期取引</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>環境設定</translation>
    </message>
    <message>
        <source>Reconcile — %1</source>
        <translation>照合 — %1</translation>
    </message>
    <message>
        <source>Reconciliation History</source>
        <translation>照合履歴</translation>
    </message>
    <message>
        <source>Sign In Required</source>
        <translation>サインインが必要です</translation>
    </message>
    <message>
        <source>Sharing requires a Halcyra account.</source>
        <translation>共有するには Halcyra アカウントが必要です。</translation>
    </message>
    <message>
        <source>New Account...</source>
        <translation>新規口座...</translation>
    </message>
    <message>
        <source>Edit &quot;%1&quot;...</source>
        <translation>「%1」を編集...</translation>
    </message>
    <message>
        <source>Reconcile...</source>
        <translation>照合...</translation>
    </message>
    <message>
        <source>Reconciliation History...</source>
        <translation>照合履歴...</translation>
    </message>
    <message>
        <source>Rename Payees...</source>
        <translation>取引先名の変更...</translation>
    </message>
    <message>
        <source>Share...</source>
        <translation>共有...</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;</source>
        <translation>「%1」を削除</translation>
    </message>
    <message>
        <source>Delete Account</source>
        <translation>アカウントを削除</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;?

All transactions, recurring entries, and reconciliation history for this account will be removed. You can restore it from Preferences → Data &amp; Sync.</source>
        <translation>「%1」を削除しますか？

この口座のすべての取引、定期取引、照合履歴が削除されます。「環境設定 → データと同期」から復元できます。</translation>
    </message>
    <message>
        <source>About Halcyra Ombrel</source>
        <translation>Halcyra Ombrel について</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Halcyra Ombrel&lt;/h2&gt;&lt;p&gt;Version %1&lt;/p&gt;&lt;p&gt;A digital ombrel register for tracking household finances.&lt;/p&gt;&lt;p&gt;© 2026 Halcyra. All rights reserved.&lt;br&gt;https://halcyra.com&lt;/p&gt;&lt;p&gt;&lt;small&gt;Built with the Qt framework, used under the GNU LGPL version 3.&lt;/small&gt;&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Halcyra Ombrel&lt;/h2&gt;&lt;p&gt;バージョン %1&lt;/p&gt;&lt;p&gt;家計を記録するデジタル Ombrel 出納帳。&lt;/p&gt;&lt;p&gt;© 2026 Halcyra. All rights reserved.&lt;br&gt;https://halcyra.com&lt;/p&gt;&lt;p&gt;&lt;small&gt;Qt フレームワークを使用しています（GNU LGPL バージョン 3 に基づく）。&lt;/small&gt;&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Register&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%1&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Save transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%2&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Insert new transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%3&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Delete current transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Tab / Shift+Tab&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Next / previous field&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;&apos; (apostrophe)&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Copy value from field above&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Date Field&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;t&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Today&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;+ / -&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Next / previous day&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;m / h&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of month&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;y / r&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of year&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;w / k&lt;/b&gt;&lt;/td&gt;&lt;td&gt;First / last day of week&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;General&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%4&lt;/b&gt;&lt;/td&gt;&lt;td&gt;New transaction&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;New account&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%6&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Reconcile account&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%7&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Search transactions&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%8&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Import&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Reports&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%10&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Recurring transactions&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%11&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Categories&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;Accounts&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%12 &amp;ndash; %13&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Switch to account 1&amp;ndash;9&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%14&lt;/b&gt;&lt;/td&gt;&lt;td&gt;Switch to account 10&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</source>
        <translation>&lt;h3&gt;出納帳&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%1&lt;/b&gt;&lt;/td&gt;&lt;td&gt;取引を保存&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%2&lt;/b&gt;&lt;/td&gt;&lt;td&gt;新しい取引を挿入&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%3&lt;/b&gt;&lt;/td&gt;&lt;td&gt;現在の取引を削除&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Tab / Shift+Tab&lt;/b&gt;&lt;/td&gt;&lt;td&gt;次 / 前のフィールド&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;&apos; (アポストロフィ)&lt;/b&gt;&lt;/td&gt;&lt;td&gt;上の行の値をコピー&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;日付フィールド&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;t&lt;/b&gt;&lt;/td&gt;&lt;td&gt;今日&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;+ / -&lt;/b&gt;&lt;/td&gt;&lt;td&gt;翌日 / 前日&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;m / h&lt;/b&gt;&lt;/td&gt;&lt;td&gt;月初 / 月末&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;y / r&lt;/b&gt;&lt;/td&gt;&lt;td&gt;年初 / 年末&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;w / k&lt;/b&gt;&lt;/td&gt;&lt;td&gt;週の初日 / 最終日&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;全般&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%4&lt;/b&gt;&lt;/td&gt;&lt;td&gt;新規取引&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%5&lt;/b&gt;&lt;/td&gt;&lt;td&gt;新規口座&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%6&lt;/b&gt;&lt;/td&gt;&lt;td&gt;口座を照合&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%7&lt;/b&gt;&lt;/td&gt;&lt;td&gt;取引を検索&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%8&lt;/b&gt;&lt;/td&gt;&lt;td&gt;インポート&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%9&lt;/b&gt;&lt;/td&gt;&lt;td&gt;レポート&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%10&lt;/b&gt;&lt;/td&gt;&lt;td&gt;定期取引&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%11&lt;/b&gt;&lt;/td&gt;&lt;td&gt;カテゴリ&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;h3&gt;口座&lt;/h3&gt;&lt;table cellspacing=&apos;6&apos;&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%12 &amp;ndash; %13&lt;/b&gt;&lt;/td&gt;&lt;td&gt;口座 1&amp;ndash;9 に切り替え&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;%14&lt;/b&gt;&lt;/td&gt;&lt;td&gt;口座 10 に切り替え&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
    <message>
        <source>Sample Data</source>
        <translation>サンプルデータ</translation>
    </message>
    <message>
        <source>Sample data is already loaded.</source>
        <translation>サンプルデータはすでに読み込まれています。</translation>
    </message>
    <message>
        <source>Sample data loaded</source>
        <translation>サンプルデータを読み込みました</translation>
    </message>
    <message>
        <source>No sample data to clear.</source>
        <translation>消去するサンプルデータはありません。</translation>
    </message>
    <message>
        <source>Sample data cleared</source>
        <translation>サンプルデータを消去しました</translation>
    </message>
    <message>
        <source>Signed in successfully</source>
        <translation>サインインしました</translation>
    </message>
    <message>
        <source>Sign-in failed: %1</source>
        <translation>サインインに失敗しました：%1</translation>
    </message>
    <message>
        <source>Manage your account</source>
        <translation>アカウントを管理</translation>
    </message>
    <message>
        <source>Halcyra Account</source>
        <translation>Halcyra アカウント</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>詳細</translation>
    </message>
    <message>
        <source>Sync complete</source>
        <translation>同期が完了しました</translation>
    </message>
    <message>
        <source>Sync failed: %1</source>
        <translation>同期に失敗しました：%1</translation>
    </message>
    <message>
        <source>Share Account</source>
        <translation>口座を共有</translation>
    </message>
    <message>
        <source>Sharing: %1</source>
        <translation>共有：%1</translation>
    </message>
    <message>
        <source>Share this account with members of your Halcyra family group. They&apos;ll see the same register, balances, and reconciliation history on their devices.</source>
        <translation>この口座を Halcyra のファミリーグループのメンバーと共有します。メンバーのデバイスにも同じ出納帳、残高、照合履歴が表示されます。</translation>
    </message>
    <message>
        <source>Shared with</source>
        <translation>共有先</translation>
    </message>
    <message>
        <source>Not shared with anyone yet.</source>
        <translation>まだ誰とも共有していません。</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>共有</translation>
    </message>
    <message>
        <source>Remove access</source>
        <translation>アクセスを削除</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Share Failed</source>
        <translation>共有に失敗しました</translation>
    </message>
    <message>
        <source>Remove Failed</source>
        <translation>削除に失敗しました</translation>
    </message>
    <message>
        <source>Remove Share</source>
        <translation>共有を解除</translation>
    </message>
    <message>
        <source>Remove %1&apos;s access to this account?</source>
        <translation>%1 のこの口座へのアクセスを削除しますか？</translation>
    </message>
    <message>
        <source>You don&apos;t have a family group yet. Sharing works within a family group: open Halcyra Account, Group, to invite someone or to join with an invite code.</source>
        <translation>まだファミリーグループがありません。共有はファミリーグループ内で行います。「Halcyra アカウント」の「グループ」を開いて、誰かを招待するか招待コードで参加してください。</translation>
    </message>
</context>
<context>
    <name>PayeeScreen</name>
    <message>
        <source>Payee Management</source>
        <translation>取引先の管理</translation>
    </message>
    <message>
        <source>Rename to:</source>
        <translation>新しい名前:</translation>
    </message>
    <message>
        <source>Rename Selected</source>
        <translation>選択項目の名前を変更</translation>
    </message>
    <message>
        <source>Merge Selected</source>
        <translation>選択項目を統合</translation>
    </message>
    <message>
        <source>Rename Complete</source>
        <translation>名前の変更が完了しました</translation>
    </message>
    <message numerus="yes">
        <source>Renamed %n transaction(s).</source>
        <translation>
            <numerusform>%n 件の取引の名前を変更しました。</numerusform>
        </translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>統合</translation>
    </message>
    <message>
        <source>Select 2 or more payees to merge.</source>
        <translation>統合する取引先を 2 つ以上選択してください。</translation>
    </message>
    <message>
        <source>Merge Payees</source>
        <translation>取引先の統合</translation>
    </message>
    <message>
        <source>Merge %1 payees into &quot;%2&quot;?</source>
        <translation>%1 件の取引先を「%2」に統合しますか？</translation>
    </message>
    <message>
        <source>Merge Complete</source>
        <translation>統合が完了しました</translation>
    </message>
    <message numerus="yes">
        <source>Merged %n transaction(s).</source>
        <translation>
            <numerusform>%n 件の取引を統合しました。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ReconciliationHistoryScreen</name>
    <message>
        <source>Reconciliation History</source>
        <translation>照合履歴</translation>
    </message>
    <message>
        <source>Past reconciliations for this account.</source>
        <translation>この口座の過去の照合。</translation>
    </message>
    <message>
        <source>Statement Date</source>
        <translation>明細書の日付</translation>
    </message>
    <message>
        <source>Statement Balance</source>
        <translation>明細書残高</translation>
    </message>
    <message>
        <source>Reconciled Balance</source>
        <translation>照合済み残高</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>完了日時</translation>
    </message>
    <message>
        <source>No reconciliations yet. Reconcile your account from the register to see the history here.</source>
        <translation>照合の記録はまだありません。出納帳から口座を照合すると、ここに履歴が表示されます。</translation>
    </message>
    <message>
        <source>Reconciliation History — %1</source>
        <translation>照合履歴 — %1</translation>
    </message>
</context>
<context>
    <name>ReconciliationScreen</name>
    <message>
        <source>Reconcile Account</source>
        <translation>口座の照合</translation>
    </message>
    <message>
        <source>Statement Date:</source>
        <translation>明細書の日付:</translation>
    </message>
    <message>
        <source>Statement Balance:</source>
        <translation>明細書残高:</translation>
    </message>
    <message>
        <source>Previous Balance</source>
        <translation>前回残高</translation>
    </message>
    <message>
        <source>Cleared Deposits</source>
        <translation>確認済み入金</translation>
    </message>
    <message>
        <source>Cleared Withdrawals</source>
        <translation>確認済み出金</translation>
    </message>
    <message>
        <source>Cleared Balance</source>
        <translation>確認済み残高</translation>
    </message>
    <message>
        <source>Statement Balance</source>
        <translation>明細書残高</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>差額</translation>
    </message>
    <message>
        <source>Finish Reconciliation</source>
        <translation>照合を完了</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>取引先</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>金額</translation>
    </message>
    <message>
        <source>Clr</source>
        <translation>✓</translation>
    </message>
    <message>
        <source>Add Transaction</source>
        <translation>取引を追加</translation>
    </message>
    <message>
        <source>Add a transaction (%1)</source>
        <translation>取引を追加 (%1)</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>Edit selected transaction (F2)</source>
        <translation>選択した取引を編集 (F2)</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Delete selected transaction (Del)</source>
        <translation>選択した取引を削除 (Del)</translation>
    </message>
    <message>
        <source>Reconciliation Complete</source>
        <translation>照合完了</translation>
    </message>
    <message>
        <source>Account reconciled successfully.</source>
        <translation>口座の照合が完了しました。</translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation>取引の削除</translation>
    </message>
    <message>
        <source>Delete the transaction for %1?</source>
        <translation>%1 の取引を削除しますか？</translation>
    </message>
</context>
<context>
    <name>RecurringFormDialog</name>
    <message>
        <source>New Recurring Transaction</source>
        <translation>新規定期取引</translation>
    </message>
    <message>
        <source>Edit Recurring Transaction</source>
        <translation>定期取引の編集</translation>
    </message>
    <message>
        <source>Memorize Transaction</source>
        <translation>定期取引として登録</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>口座:</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>出金</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>入金</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>種類:</translation>
    </message>
    <message>
        <source>Start typing to search payees...</source>
        <translation>入力して取引先を検索...</translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation>取引先:</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>金額:</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（なし）</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>カテゴリ:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>任意</translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation>メモ:</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>毎日</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>毎週</translation>
    </message>
    <message>
        <source>Bi-weekly</source>
        <translation>隔週</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>毎月</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>四半期ごと</translation>
    </message>
    <message>
        <source>Semi-annual</source>
        <translation>半年ごと</translation>
    </message>
    <message>
        <source>Annual</source>
        <translation>毎年</translation>
    </message>
    <message>
        <source>Frequency:</source>
        <translation>頻度:</translation>
    </message>
    <message>
        <source>Start Date:</source>
        <translation>開始日:</translation>
    </message>
    <message>
        <source>Has end date</source>
        <translation>終了日あり</translation>
    </message>
    <message>
        <source>End Date:</source>
        <translation>終了日:</translation>
    </message>
    <message>
        <source>Auto-post when due</source>
        <translation>期日に自動記帳</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>有効</translation>
    </message>
</context>
<context>
    <name>RecurringModel</name>
    <message>
        <source>Daily</source>
        <translation>毎日</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>毎週</translation>
    </message>
    <message>
        <source>Bi-weekly</source>
        <translation>隔週</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>毎月</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>四半期ごと</translation>
    </message>
    <message>
        <source>Semi-annual</source>
        <translation>半年ごと</translation>
    </message>
    <message>
        <source>Annual</source>
        <translation>毎年</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>Inactive</source>
        <translation>無効</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>口座</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>取引先</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>金額</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>頻度</translation>
    </message>
    <message>
        <source>Next Due</source>
        <translation>次回期日</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状態</translation>
    </message>
</context>
<context>
    <name>RecurringScreen</name>
    <message>
        <source>Recurring Transactions</source>
        <translation>定期取引</translation>
    </message>
    <message>
        <source>Confirm All Due</source>
        <translation>期日分をすべて確定</translation>
    </message>
    <message>
        <source>New Recurring</source>
        <translation>新規定期取引</translation>
    </message>
    <message>
        <source>(%1 due)</source>
        <translation>（期日 %1 件）</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Delete recurring &quot;%1&quot;?</source>
        <translation>定期取引「%1」を削除しますか？</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Confirm</source>
        <translation>確定(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Skip</source>
        <translation>スキップ(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
</context>
<context>
    <name>RegisterDelegate</name>
    <message>
        <source>[Transfer] %1</source>
        <translation>[振替] %1</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>メモ</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>—Split—</source>
        <translation>—分割—</translation>
    </message>
    <message>
        <source>Payee / Memo</source>
        <translation>取引先 / メモ</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>残高</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Chk #</source>
        <translation>番号</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>取引先</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>メモ</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>出金</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>入金</translation>
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
        <translation>照合</translation>
    </message>
    <message>
        <source>%1: save  |  Enter: next  |  %2: delete  |  %3: memorize  |  &apos;: copy above</source>
        <translation>%1: 保存  |  Enter: 次へ  |  %2: 削除  |  %3: 定期取引として登録  |  &apos;: 上の行をコピー</translation>
    </message>
    <message>
        <source>Payee is required</source>
        <translation>取引先を入力してください</translation>
    </message>
    <message>
        <source>Enter a payment or deposit amount</source>
        <translation>出金額または入金額を入力してください</translation>
    </message>
    <message>
        <source>Transfer account not found</source>
        <translation>振替先の口座が見つかりません</translation>
    </message>
    <message>
        <source>Transfers require both accounts to use the same currency</source>
        <translation>振替は両方の口座が同じ通貨でなければできません</translation>
    </message>
    <message>
        <source>Transfer to %1</source>
        <translation>%1 への振替</translation>
    </message>
    <message>
        <source>Transfer from %1</source>
        <translation>%1 からの振替</translation>
    </message>
    <message>
        <source>Fields cleared</source>
        <translation>フィールドをクリアしました</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for %2?</source>
        <translation>%2 の「%1」を削除しますか？</translation>
    </message>
    <message>
        <source>Delete transfer &quot;%1&quot; for %2?

Both sides of the transfer will be deleted.</source>
        <translation>%2 の振替「%1」を削除しますか？

振替の両側が削除されます。</translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation>取引の削除</translation>
    </message>
    <message>
        <source>Cannot memorize: source transaction has an invalid date</source>
        <translation>登録できません: 元の取引の日付が無効です</translation>
    </message>
    <message>
        <source>Transaction memorized as recurring</source>
        <translation>取引を定期取引として登録しました</translation>
    </message>
    <message>
        <source>&amp;Insert New</source>
        <translation>新しい行を挿入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;New Transaction...</source>
        <translation>新規取引(&amp;N)...</translation>
    </message>
    <message>
        <source>Show &amp;Details...</source>
        <translation>詳細を表示(&amp;T)...</translation>
    </message>
    <message>
        <source>Edit &amp;Splits...</source>
        <translation>分割を編集(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Edit in Dialog...</source>
        <translation>ダイアログで編集(&amp;E)...</translation>
    </message>
    <message>
        <source>Mark &amp;Uncleared</source>
        <translation>未確認にする(&amp;U)</translation>
    </message>
    <message>
        <source>Mark &amp;Cleared</source>
        <translation>確認済みにする(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>Show columns</source>
        <translation>表示する列</translation>
    </message>
    <message>
        <source>Reset register layout</source>
        <translation>出納帳のレイアウトをリセット</translation>
    </message>
</context>
<context>
    <name>ReportsScreen</name>
    <message>
        <source>Category Spending</source>
        <translation>カテゴリ別支出</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>合計</translation>
    </message>
    <message>
        <source>Payee Summary</source>
        <translation>取引先別集計</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>取引先</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>件数</translation>
    </message>
    <message>
        <source>Tax Report</source>
        <translation>税金レポート</translation>
    </message>
    <message>
        <source>Tax Code</source>
        <translation>税区分コード</translation>
    </message>
    <message>
        <source>Income vs Expenses</source>
        <translation>収入と支出</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>月</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>収入</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>支出</translation>
    </message>
    <message>
        <source>Net</source>
        <translation>収支</translation>
    </message>
    <message>
        <source>Cash Flow</source>
        <translation>キャッシュフロー</translation>
    </message>
    <message>
        <source>Inflows</source>
        <translation>入金</translation>
    </message>
    <message>
        <source>Outflows</source>
        <translation>出金</translation>
    </message>
    <message>
        <source>Year-over-Year</source>
        <translation>前年比較</translation>
    </message>
    <message>
        <source>Period 1</source>
        <translation>期間 1</translation>
    </message>
    <message>
        <source>Period 2</source>
        <translation>期間 2</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>差額</translation>
    </message>
    <message>
        <source>Account Summary</source>
        <translation>口座の概要</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>口座</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>確認済み</translation>
    </message>
    <message>
        <source>Uncleared</source>
        <translation>未確認</translation>
    </message>
    <message>
        <source>Transactions</source>
        <translation>取引</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>メモ</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>金額</translation>
    </message>
    <message>
        <source>Checking</source>
        <translation>当座預金</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>普通預金</translation>
    </message>
    <message>
        <source>Credit Card</source>
        <translation>クレジットカード</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>現金</translation>
    </message>
    <message>
        <source>Investment</source>
        <translation>投資</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>This Month</source>
        <translation>今月</translation>
    </message>
    <message>
        <source>Last Month</source>
        <translation>先月</translation>
    </message>
    <message>
        <source>This Quarter</source>
        <translation>今四半期</translation>
    </message>
    <message>
        <source>Last Quarter</source>
        <translation>前四半期</translation>
    </message>
    <message>
        <source>This Year</source>
        <translation>今年</translation>
    </message>
    <message>
        <source>Last Year</source>
        <translation>昨年</translation>
    </message>
    <message>
        <source>Last 30 Days</source>
        <translation>過去 30 日</translation>
    </message>
    <message>
        <source>Last 90 Days</source>
        <translation>過去 90 日</translation>
    </message>
    <message>
        <source>Last 12 Months</source>
        <translation>過去 12 か月</translation>
    </message>
    <message>
        <source>All Time</source>
        <translation>全期間</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>カスタム</translation>
    </message>
    <message>
        <source>This Year vs Last Year</source>
        <translation>今年と昨年</translation>
    </message>
    <message>
        <source>Last Year vs Year Before</source>
        <translation>昨年と一昨年</translation>
    </message>
    <message>
        <source>This Quarter vs Last Quarter</source>
        <translation>今四半期と前四半期</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>レポート</translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation>CSV にエクスポート</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>口座:</translation>
    </message>
    <message>
        <source>Period:</source>
        <translation>期間:</translation>
    </message>
    <message>
        <source>Compare:</source>
        <translation>比較:</translation>
    </message>
    <message>
        <source>P1:</source>
        <translation>期間1:</translation>
    </message>
    <message>
        <source>P2:</source>
        <translation>期間2:</translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation>すべての口座</translation>
    </message>
    <message>
        <source>P1: %1 – %2    P2: %3 – %4</source>
        <translation>期間1: %1 – %2    期間2: %3 – %4</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV ファイル (*.csv)</translation>
    </message>
</context>
<context>
    <name>SampleDataService</name>
    <message>
        <source>Main Checking</source>
        <translation>メイン当座口座</translation>
    </message>
    <message>
        <source>Savings</source>
        <translation>普通預金</translation>
    </message>
    <message>
        <source>Visa Rewards</source>
        <translation>Visa リワード</translation>
    </message>
</context>
<context>
    <name>SearchScreen</name>
    <message>
        <source>Search payee, memo, check number...</source>
        <translation>取引先、メモ、小切手番号を検索...</translation>
    </message>
    <message>
        <source>Date range:</source>
        <translation>期間:</translation>
    </message>
    <message>
        <source>to</source>
        <translation>～</translation>
    </message>
    <message>
        <source>Cleared only</source>
        <translation>確認済みのみ</translation>
    </message>
    <message>
        <source>Account:</source>
        <translation>口座:</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>カテゴリ:</translation>
    </message>
    <message>
        <source>All Accounts</source>
        <translation>すべての口座</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>すべてのカテゴリ</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>General</source>
        <translation>全般</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>出納帳</translation>
    </message>
    <message>
        <source>Data &amp; Sync</source>
        <translation>データと同期</translation>
    </message>
    <message>
        <source>About</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Control how Halcyra Ombrel looks.</source>
        <translation>Halcyra Ombrel の外観を設定します。</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外観</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>システムの設定</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>ダーク</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>小</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>大</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>特大</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>文字サイズ</translation>
    </message>
    <message>
        <source>Regional</source>
        <translation>地域</translation>
    </message>
    <message>
        <source>Date and calendar preferences.</source>
        <translation>日付とカレンダーの設定。</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>日曜日</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>月曜日</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>土曜日</translation>
    </message>
    <message>
        <source>Week starts on</source>
        <translation>週の始まり</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>How transactions appear in the register.</source>
        <translation>出納帳での取引の表示方法。</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Two-line rows</source>
        <translation>2 行表示</translation>
    </message>
    <message>
        <source>Show memo on a second line below the payee.</source>
        <translation>取引先の下の 2 行目にメモを表示します。</translation>
    </message>
    <message>
        <source>Sorting</source>
        <translation>並び順</translation>
    </message>
    <message>
        <source>Control the order of transactions in the register.</source>
        <translation>出納帳での取引の並び順を設定します。</translation>
    </message>
    <message>
        <source>Show newest transactions first</source>
        <translation>新しい取引を先頭に表示</translation>
    </message>
    <message>
        <source>When enabled, the most recent transactions appear at the top.</source>
        <translation>オンにすると、最新の取引が一番上に表示されます。</translation>
    </message>
    <message>
        <source>Sync</source>
        <translation>同期</translation>
    </message>
    <message>
        <source>Keep your ombrel in sync across all your devices.</source>
        <translation>すべてのデバイスで Ombrel を同期します。</translation>
    </message>
    <message>
        <source>Sync Now</source>
        <translation>今すぐ同期</translation>
    </message>
    <message>
        <source>Force Full Sync</source>
        <translation>完全同期を実行</translation>
    </message>
    <message>
        <source>Backup &amp; Restore</source>
        <translation>バックアップと復元</translation>
    </message>
    <message>
        <source>Save or restore your data to a portable backup file.</source>
        <translation>持ち運べるバックアップファイルにデータを保存、またはそこから復元します。</translation>
    </message>
    <message>
        <source>Export Backup</source>
        <translation>バックアップをエクスポート</translation>
    </message>
    <message>
        <source>Import Backup</source>
        <translation>バックアップをインポート</translation>
    </message>
    <message>
        <source>Deleted Accounts</source>
        <translation>削除した口座</translation>
    </message>
    <message>
        <source>Accounts you&apos;ve deleted can be restored here.</source>
        <translation>削除した口座はここで復元できます。</translation>
    </message>
    <message>
        <source>Restore Selected</source>
        <translation>選択した口座を復元</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>A digital ombrel register for tracking household finances.</source>
        <translation>家計を記録するデジタル Ombrel 出納帳。</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>リンク</translation>
    </message>
    <message>
        <source>Halcyra Ombrel on the web</source>
        <translation>Halcyra Ombrel のウェブサイト</translation>
    </message>
    <message>
        <source>Halcyra Store</source>
        <translation>Halcyra ストア</translation>
    </message>
    <message>
        <source>Help and support</source>
        <translation>ヘルプとサポート</translation>
    </message>
    <message>
        <source>© 2026 Halcyra. All rights reserved.
Built with the Qt framework, used under the GNU LGPL version 3.</source>
        <translation>© 2026 Halcyra. All rights reserved.
Qt フレームワークを使用しています（GNU LGPL バージョン 3 に基づく）。</translation>
    </message>
    <message>
        <source>Not signed in.
Sign in via File › Halcyra Account to enable sync.</source>
        <translation>サインインしていません。
同期を有効にするには「ファイル › Halcyra アカウント」からサインインしてください。</translation>
    </message>
    <message>
        <source>Language Changed</source>
        <translation>言語を変更しました</translation>
    </message>
    <message>
        <source>The new language will take effect the next time you start Halcyra Ombrel.</source>
        <translation>新しい言語は次回 Halcyra Ombrel を起動したときに適用されます。</translation>
    </message>
    <message>
        <source>ZIP Files (*.zip)</source>
        <translation>ZIP ファイル (*.zip)</translation>
    </message>
    <message>
        <source>Exporting...</source>
        <translation>エクスポート中...</translation>
    </message>
    <message>
        <source>Exporting backup...</source>
        <translation>バックアップをエクスポートしています...</translation>
    </message>
    <message>
        <source>Backup Complete</source>
        <translation>バックアップ完了</translation>
    </message>
    <message>
        <source>Backup saved to:
%1</source>
        <translation>バックアップの保存先:
%1</translation>
    </message>
    <message>
        <source>Backup Failed</source>
        <translation>バックアップ失敗</translation>
    </message>
    <message>
        <source>Could not write to:
%1</source>
        <translation>書き込めませんでした:
%1</translation>
    </message>
    <message>
        <source>Replace all with backup data</source>
        <translation>すべてバックアップのデータで置き換える</translation>
    </message>
    <message>
        <source>Keep newer (compare timestamps)</source>
        <translation>新しい方を残す（タイムスタンプを比較）</translation>
    </message>
    <message>
        <source>Skip existing items</source>
        <translation>既存の項目をスキップ</translation>
    </message>
    <message>
        <source>Import Mode</source>
        <translation>インポート方法</translation>
    </message>
    <message>
        <source>How should existing data be handled?</source>
        <translation>既存のデータをどう扱いますか？</translation>
    </message>
    <message>
        <source>Import Failed</source>
        <translation>インポート失敗</translation>
    </message>
    <message>
        <source>Could not read file.</source>
        <translation>ファイルを読み込めませんでした。</translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation>インポート中...</translation>
    </message>
    <message>
        <source>Restoring backup...</source>
        <translation>バックアップを復元しています...</translation>
    </message>
    <message>
        <source>Imported %1 items, skipped %2.</source>
        <translation>%1 件をインポートし、%2 件をスキップしました。</translation>
    </message>
    <message numerus="yes">
        <source>

%n error(s) occurred.</source>
        <translation>
            <numerusform>

%n 件のエラーが発生しました。</numerusform>
        </translation>
    </message>
    <message>
        <source>Import Complete</source>
        <translation>インポート完了</translation>
    </message>
    <message>
        <source>Halcyra user</source>
        <translation>Halcyra ユーザー</translation>
    </message>
    <message>
        <source>&lt;b&gt;Signed in as:&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;Status:&lt;/b&gt; &lt;span style=&quot;color:%2&quot;&gt;%3&lt;/span&gt;</source>
        <translation>&lt;b&gt;サインイン中：&lt;/b&gt; %1&lt;br&gt;&lt;b&gt;状態：&lt;/b&gt; &lt;span style=&quot;color:%2&quot;&gt;%3&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Last synced: %1</source>
        <translation>最終同期：%1</translation>
    </message>
    <message>
        <source>Never synced</source>
        <translation>未同期</translation>
    </message>
    <message>
        <source>
Error: %1</source>
        <translation>
エラー：%1</translation>
    </message>
    <message>
        <source>Syncing...</source>
        <translation>同期中...</translation>
    </message>
    <message>
        <source>This will re-upload every local row to the server and re-download all server data. Use this if data appears out of sync between devices.

Continue?</source>
        <translation>ローカルのすべての行をサーバーに再アップロードし、サーバーのすべてのデータを再ダウンロードします。デバイス間でデータが同期されていないように見える場合に使用してください。

続行しますか？</translation>
    </message>
</context>
<context>
    <name>SmartDateEdit</name>
    <message>
        <source>Open calendar (F4)</source>
        <translation>カレンダーを開く (F4)</translation>
    </message>
</context>
<context>
    <name>SplitEditorDialog</name>
    <message>
        <source>(none)</source>
        <translation>（なし）</translation>
    </message>
    <message>
        <source>Split Transaction</source>
        <translation>取引の分割</translation>
    </message>
    <message>
        <source>Total: %1</source>
        <translation>合計: %1</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>金額</translation>
    </message>
    <message>
        <source>Memo</source>
        <translation>メモ</translation>
    </message>
    <message>
        <source>+ Add Line</source>
        <translation>+ 行を追加</translation>
    </message>
    <message>
        <source>- Remove</source>
        <translation>- 削除</translation>
    </message>
    <message>
        <source>Remaining: %1</source>
        <translation>残り: %1</translation>
    </message>
</context>
<context>
    <name>StatusBar</name>
    <message>
        <source>Offline</source>
        <translation>オフライン</translation>
    </message>
    <message numerus="yes">
        <source>%n account(s)</source>
        <translation>
            <numerusform>%n 口座</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>  •  %n recurring due</source>
        <translation>
            <numerusform>  •  定期取引の期日 %n 件</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SyncEngine</name>
    <message>
        <source>Synced</source>
        <translation>同期済み</translation>
    </message>
    <message>
        <source>Syncing...</source>
        <translation>同期中...</translation>
    </message>
    <message>
        <source>Sync error</source>
        <translation>同期エラー</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>オフライン</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
</context>
<context>
    <name>TransactionDetailsDialog</name>
    <message>
        <source>Transaction Details</source>
        <translation>取引の詳細</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>日付:</translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation>取引先:</translation>
    </message>
    <message>
        <source>- %1</source>
        <translation>- %1</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>金額:</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>カテゴリ:</translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation>メモ:</translation>
    </message>
    <message>
        <source>Check #:</source>
        <translation>小切手番号:</translation>
    </message>
    <message>
        <source>Transfer to:</source>
        <translation>振替先:</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>状態:</translation>
    </message>
    <message>
        <source>Entered: %1</source>
        <translation>入力日時: %1</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>編集...</translation>
    </message>
    <message>
        <source>Delete...</source>
        <translation>削除...</translation>
    </message>
    <message>
        <source>Split lines</source>
        <translation>分割明細</translation>
    </message>
    <message>
        <source>(no split lines on record)</source>
        <translation>（分割明細の記録はありません）</translation>
    </message>
    <message>
        <source>(uncategorized)</source>
        <translation>（未分類）</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>合計</translation>
    </message>
    <message>
        <source>Reconciled</source>
        <translation>照合済み</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>確認済み</translation>
    </message>
    <message>
        <source>Uncleared</source>
        <translation>未確認</translation>
    </message>
    <message>
        <source>Mark Uncleared</source>
        <translation>未確認にする</translation>
    </message>
    <message>
        <source>Mark Cleared</source>
        <translation>確認済みにする</translation>
    </message>
    <message>
        <source>Last modified: %1</source>
        <translation>最終更新: %1</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; for %2?</source>
        <translation>%2 の「%1」を削除しますか？</translation>
    </message>
    <message>
        <source>Delete transfer &quot;%1&quot; for %2?

Both sides of the transfer will be deleted.</source>
        <translation>%2 の振替「%1」を削除しますか？

振替の両側が削除されます。</translation>
    </message>
    <message>
        <source>Delete Transaction</source>
        <translation>取引の削除</translation>
    </message>
</context>
<context>
    <name>TransactionFormDialog</name>
    <message>
        <source>Edit Transaction</source>
        <translation>取引の編集</translation>
    </message>
    <message>
        <source>New Transaction</source>
        <translation>新規取引</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>出金</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>入金</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>種類:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>日付:</translation>
    </message>
    <message>
        <source>Start typing to search payees...</source>
        <translation>入力して取引先を検索...</translation>
    </message>
    <message>
        <source>Payee:</source>
        <translation>取引先:</translation>
    </message>
    <message>
        <source>Split this transaction across multiple categories with their own amounts and memos.</source>
        <translation>この取引を複数のカテゴリに分割し、それぞれに金額とメモを付けます。</translation>
    </message>
    <message>
        <source>Clear split</source>
        <translation>分割を解除</translation>
    </message>
    <message>
        <source>Drop the split and return to a single-category transaction.</source>
        <translation>分割をやめて、カテゴリが 1 つの取引に戻します。</translation>
    </message>
    <message>
        <source>Amount:</source>
        <translation>金額:</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（なし）</translation>
    </message>
    <message>
        <source>Category:</source>
        <translation>カテゴリ:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>任意</translation>
    </message>
    <message>
        <source>Memo:</source>
        <translation>メモ:</translation>
    </message>
    <message>
        <source>Check #:</source>
        <translation>小切手番号:</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>確認済み</translation>
    </message>
    <message>
        <source>Edit splits...</source>
        <translation>分割を編集...</translation>
    </message>
    <message>
        <source>Split...</source>
        <translation>分割...</translation>
    </message>
</context>
<context>
    <name>TransactionRepository</name>
    <message>
        <source>Opening Balance</source>
        <translation>開始残高</translation>
    </message>
</context>
<context>
    <name>WelcomeScreen</name>
    <message>
        <source>Welcome to
%1</source>
        <translation>ようこそ
%1 へ</translation>
    </message>
    <message>
        <source>A digital ombrel register.</source>
        <translation>デジタル Ombrel 出納帳。</translation>
    </message>
    <message>
        <source>Works fully offline. Your data stays on this device.</source>
        <translation>完全にオフラインで動作します。データはこのデバイスに保存されます。</translation>
    </message>
    <message>
        <source>Create Your First Account</source>
        <translation>最初の口座を作成</translation>
    </message>
    <message>
        <source>Learn about sync and sharing</source>
        <translation>同期と共有について</translation>
    </message>
    <message>
        <source>Already have an account? Sign In</source>
        <translation>アカウントをお持ちの方はサインイン</translation>
    </message>
    <message>
        <source>How it works</source>
        <translation>使い方</translation>
    </message>
    <message>
        <source>Add an account (checking, savings, credit card, or any account you&apos;d like to track).</source>
        <translation>口座を追加します（当座預金、普通預金、クレジットカードなど、記録したい口座なら何でも）。</translation>
    </message>
    <message>
        <source>Record transactions as you spend.</source>
        <translation>お金を使ったら取引を記録します。</translation>
    </message>
    <message>
        <source>Reconcile when your statement arrives.</source>
        <translation>明細書が届いたら照合します。</translation>
    </message>
</context>
</TS>
